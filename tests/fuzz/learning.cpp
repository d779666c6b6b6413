// A learning file: whatever its links say, what is added is found again.
#include "fuzz.h"

#include "book/learning_file.h"

namespace {

constexpr size_t TITLE = 23;
constexpr size_t HEADS = 4 * 65536;
// All in one bucket, the first, whose head the input tells.
constexpr LearningKeys Keys[] = {{0, 1}, {0x10000, 2}, {0x20000, 0}};

} // namespace

void Try(std::string_view input) {
    std::string head(TITLE + HEADS, '\0');
    for (size_t i = 0; i < 4; i++)
        head[TITLE + i] = char(TakeByte(input));
    PutFile("Learn.tq1", head + std::string(input));
    OpenLearningFile("Learn.tq1");
    LearnedPosition found;
    for (const LearningKeys keys : Keys) {
        const LearnedPosition learned = {600, -7, Move(keys.key2)};
        if (const uint32_t offset = LookUpLearned(keys, found); offset != 0)
            RefreshLearned(offset, keys, learned);
        else
            AddLearned(keys, learned);
        Claim(LookUpLearned(keys, found) != 0 && found.move == learned.move,
              "what was added is found again");
    }
    CloseLearningFile();
}
