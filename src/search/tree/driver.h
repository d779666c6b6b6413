// From a request to think to a move: set-up, iterative deepening, the choice, the announcement.
#pragma once

#include "search/driver_state.h"

// Thinks about the position under the limits in force, announces the move through the host and
// makes it. Does nothing more when the game is over, or when what arrived meanwhile made the move
// unwanted (search/interrupts.h). Returns whether a move was made.
bool Think();

// The search alone, to `maxDepth` plies at most, without clock or announcement: for the bench and
// tests. Returns the best move (NO_MOVE when the game is over) and leaves its score with
// the first root move.
Move SearchFixedDepth(int maxDepth);

// The same to a number of nodes, for games of the engine against itself, where a move is worth a
// thousandth of a second. It is passed by some dozens; by thousands where a quiescence search full
// of checks is under way, since without it there would be no score at all.
Move SearchFixedNodes(int32_t nodes);

// Forgets what searches leave for later ones: the tables, what move ordering has learned, and what
// plies know. The next search is the same as in a new process.
void ClearSearchMemory();
