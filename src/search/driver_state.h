// What the driver remembers from search to search.
#pragma once

#include "board/position.h"
#include "book/position_learning.h"

// The latest finished search's score and the side it was made for; a new game clears them.
extern int32_t LastScore;
extern Colour LastScoreSide;
// Searches since a book move was played, or since the start.
extern int32_t SearchesSinceBook;
// The engine's own latest choice; NO_MOVE when the game was over.
extern Move BestMove;
extern bool BestMoveFromBook; // it was not searched for

// The engine's latest moves, newest last: what the resignation rule and learning look back on.
constexpr int SEARCH_RECORDS = 10;
extern SearchRecord RecentSearches[SEARCH_RECORDS];
extern int32_t RecentSearchCount;

// Forgets the latest score, as a new game does.
void ForgetLastScore();

// Sets everything above to its value at process start.
void ResetDriverState();
