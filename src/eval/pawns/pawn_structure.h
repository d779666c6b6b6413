// The evaluation of the pawn structure: what the pawns alone are worth and what they tell others.
#pragma once

#include "board/position.h"
#include "eval/pawns/pawn_hash.h"

// Finds or computes the record of the position's pawns, so that `Pawns` holds for it.
void PawnProbe();

// All pawns of the side on the files where it has a passed one. Needs `Pawns` of the position.
inline Bitboard PassedPawns(Colour side) {
    return PieceBB[PAWN][side] & SquaresOfFiles(Pawns.PassedVector(side));
}

// Computes the record into `Pawns` whether the table has it or not, and stores nothing.
void PawnCompute();
