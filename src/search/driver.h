// From a request to think to a move: set-up, iterative deepening, the choice, the announcement.
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
    uint64_t posKey;   // the position searched
    int32_t gamePly;
};
constexpr int SEARCH_RECORDS = 10;
extern SearchRecord RecentSearches[SEARCH_RECORDS];
extern int32_t RecentSearchCount;

// Thinks about the position under the limits in force, announces the move through the host and
// makes it. Does nothing more when the game is over. Returns whether a move was made.
bool Think();

// The search alone, to `maxDepth` plies at most, without clock or announcement: for the bench and
// tests. Returns the best move (NO_MOVE when the game is over) and leaves its score in
// RootScores[0].
Move SearchFixedDepth(int maxDepth);

// Forgets the latest score, as a new game does.
void ForgetLastScore();
