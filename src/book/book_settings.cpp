#include "book/book_settings.h"

namespace {

constexpr int32_t DEFAULT_VARIETY = 10;
constexpr int32_t DEFAULT_LEARNING_BOUND = 400;

} // namespace

constinit bool OwnBook = true;
constinit int32_t VarietyOfPlay = DEFAULT_VARIETY;
constinit int32_t BookLearningBound = DEFAULT_LEARNING_BOUND;
constinit int32_t BookLearningMode = BOOK_KILL;
constinit bool UseBookLearning = true;
constinit bool UseBookWeights = true;
constinit bool PositionLearning = false;
constinit bool UseLearningData = false;
constinit bool LogLearningIntoFile = false;

void SetDefaultBookSettings() {
    OwnBook = true;
    VarietyOfPlay = DEFAULT_VARIETY;
    BookLearningBound = DEFAULT_LEARNING_BOUND;
    BookLearningMode = BOOK_KILL;
    UseBookLearning = UseBookWeights = true;
    PositionLearning = UseLearningData = LogLearningIntoFile = false;
}
