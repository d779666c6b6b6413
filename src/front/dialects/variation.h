// The variation that a search believes in, as far as the transposition table tells it.
#pragma once

#include "board/types.h"

// The root move whose tree the running search is in.
Move MoveBeingSearched();

constexpr int MAX_VARIATION = 20;

// The variation of root move `index`: the root move, then what the transposition table tells, as
// many as are told. Its second move becomes the reply to expect. Works at the root and below its
// first move.
int CollectVariation(int index, Move (&moves)[MAX_VARIATION]);

// Prints the variation of root move `index` as " %s" for each move: the root move, then what the
// transposition table tells, 20 moves at most; its second move is the reply to expect. Works at the
// root and below its first move.
void PrintVariationMoves(int index);

// What the table expects the opponent to reply to a move.
Move ExpectedReply(Move move);
