// What a capture or promotion can bring at most: the arithmetic of pruning near the horizon.
#pragma once

#include "board/types.h"

// The change of the static evaluation, in centipawns for the side to move, that a pseudo-legal
// capture or promotion is expected to bring. Asked before the move is made.
int32_t CaptureGain(Move move);

// Whether a capture or promotion that gives no check cannot lift the score to alpha any more, at a
// null-window node of the horizon whose static evaluation for the side to move is `standPat` and
// saw an attack of that worth, centipawns, on the enemy king. Underpromotions never can.
bool CaptureIsHopeless(Move move, int32_t alpha, int32_t standPat, int32_t attack);

// The change of the blended piece-square sum, in centipawns for the side to move, that a move
// brings by its own man.
int32_t SquareGain(Move move);
