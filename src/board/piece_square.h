// The two piece-square tables that make and unmake keep running sums of.
//
// They stand here beside their reader; the evaluation's parameter set fills them.
#pragma once

#include "board/types.h"

// By piece code, colour and square; centipawns as the man's own side sees them. Table A counts in
// the middlegame, table B in the ending.
extern int16_t PstA[PIECE_CODES][2][64];
extern int16_t PstB[PIECE_CODES][2][64];
