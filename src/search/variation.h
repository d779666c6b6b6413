// The variation that a search believes in, as far as the transposition table tells it.
#pragma once

#include "board/types.h"

constexpr int MAX_VARIATION = 20;

// The variation of root move `index`: the root move, then what the transposition table tells, as
// many as are told. Works at the root and below its first move.
int CollectVariation(int index, Move (&moves)[MAX_VARIATION]);

// What the table expects the opponent to reply to a move.
Move ExpectedReply(Move move);
