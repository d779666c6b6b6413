// The random keys that positions are hashed with, the same in every run.
#pragma once

#include "board/types.h"

extern Bitboard PieceKeys[2][PIECE_CODES][64]; // by colour, piece code and square
extern Bitboard CastleKeys[16];                // by castling rights
extern Bitboard EpKeys[8];                     // by file

// Draws the keys from the runtime's random sequence. Called once at start-up, before the sequence
// is seeded: drawn from its initial state the keys are the same in every run, which learning
// files depend on.
void InitKeys();
