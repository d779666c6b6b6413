#include "search/driver_state.h"

constinit int32_t LastScore = 0;
constinit Colour LastScoreSide = WHITE;
constinit int32_t SearchesSinceBook = 0;
constinit Move BestMove = NO_MOVE;
constinit bool BestMoveFromBook = false;
constinit SearchRecord RecentSearches[SEARCH_RECORDS] = {};
constinit int32_t RecentSearchCount = 0;

void ForgetLastScore() {
    LastScore = 0;
    LastScoreSide = WHITE;
}

void ResetDriverState() {
    ForgetLastScore();
    SearchesSinceBook = 0;
    BestMove = NO_MOVE;
    BestMoveFromBook = false;
    RecentSearchCount = 0;
}
