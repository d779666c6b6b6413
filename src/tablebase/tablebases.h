// The exact value of a position that a registered tablebase holds.
#pragma once

#include <cstdint>

#include "board/types.h"

// Looks up the position on the board with `side` to move. 1 with its score from that side's view
// as if it stood at the root's place: 32700 - 2n for a mate in n moves, 2n - 32700 for being mated
// in n, 0 for a draw. 0 when no table tells: none for its men and side to move, one that cannot be
// read or is too short, or a position that cannot be.
int ProbeTablebase(Colour side, int32_t& score);
