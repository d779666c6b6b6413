#include "front/game/dialect.h"

namespace {

constexpr Dialect Silence = {
    .printResult = [](const char*) {},
    .printNote = [](const char*) {},
    .printVariations = [](BoundType, int) {},
    .printCurrentMove = [] {},
    .printStatistics = [] {},
    .announceMove = [](Move, bool) {},
    .answerFinishedGame = [] {},
    .keepMove = [](bool) {},
    .keepsLastScore = false,
    .pondersByItself = false,
};

} // namespace

constinit const Dialect* Speaking = &Silence;

void ShowBoardToPerson() {
    if (Speaking->showBoard != nullptr)
        Speaking->showBoard();
}
