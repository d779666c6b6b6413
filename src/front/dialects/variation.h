// The variation that a search believes in, as a dialect prints it.
#pragma once

#include "board/types.h"
#include "search/variation.h"

// The root move whose tree the running search is in.
Move MoveBeingSearched();

// The variation of root move `index`, which is going to be printed: its second move becomes the
// reply to expect. Returns how many moves it has.
int TakeVariation(int index, Move (&moves)[MAX_VARIATION]);

// Prints the variation of root move `index` as " %s" for each move: the root move, then what the
// transposition table tells, 20 moves at most; its second move is the reply to expect. Works at the
// root and below its first move.
void PrintVariationMoves(int index);
