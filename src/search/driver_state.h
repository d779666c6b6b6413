// What the driver remembers from search to search.
#pragma once

#include "board/position.h"

// The latest finished search's score and the side it was made for; a new game clears them.
extern int32_t LastScore;
extern Colour LastScoreSide;
// Searches since a book move was played, or since the start.
extern int32_t SearchesSinceBook;
// The engine's own latest choice; NO_MOVE when the game was over.
extern Move BestMove;

// What the resignation rule looks back on: the engine's latest searches, newest last.
struct SearchRecord {
    int32_t score;
    uint64_t posKey; // the position searched
};
constexpr int SEARCH_RECORDS = 10;
extern SearchRecord RecentSearches[SEARCH_RECORDS];
extern int32_t RecentSearchCount;

// Forgets the latest score, as a new game does.
void ForgetLastScore();

// Sets everything above to its value at process start.
void ResetDriverState();
