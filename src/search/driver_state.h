// What the driver remembers from search to search.
#pragma once

#include "board/position.h"
#include "book/position_learning.h"

constexpr int SEARCH_RECORDS = 10;

struct PastSearches {
    // The latest finished search's score and the side it was made for; a new game forgets them.
    int32_t LastScore = 0;
    Colour LastScoreSide = WHITE;
    // Searches since a book move was played, or since the start.
    int32_t SearchesSinceBook = 0;
    // The engine's own latest choice; NO_MOVE when the game was over.
    Move BestMove = NO_MOVE;
    bool BestMoveFromBook = false; // it was not searched for
    // The tables hold what full strength has found out.
    bool SearchedInFull = false;
    // The engine's latest moves, newest last: what the resignation rule and learning look back on.
    SearchRecord RecentSearches[SEARCH_RECORDS] = {};
    int32_t RecentSearchCount = 0;
};
extern PastSearches Past;

// Forgets the latest score, as a new game does.
void ForgetLastScore();
