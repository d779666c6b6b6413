#include "book/unwritten.h"

namespace {

constexpr const char* Texts[LEARNING_STORES] = {
    "The opening book cannot be written: it learns nothing from the games",
    "Learn.tq1 cannot be written: it learns no positions",
};

enum State : char { FINE, UNWRITTEN, TOLD };
constinit State States[LEARNING_STORES] = {};

} // namespace

void ForgetUnwritten(LearningStore store) {
    States[store] = FINE;
}

void NoteUnwritten(LearningStore store) {
    if (States[store] == FINE)
        States[store] = UNWRITTEN;
}

const char* NextUnwritten() {
    for (int store = 0; store < LEARNING_STORES; store++) {
        if (States[store] == UNWRITTEN) {
            States[store] = TOLD;
            return Texts[store];
        }
    }
    return nullptr;
}
