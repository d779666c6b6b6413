// The evaluation of the pawn structure: what the pawns alone are worth and what they tell others.
#pragma once

#include "board/types.h"
#include "eval/figures.h"
#include "eval/pawns/pawn_hash.h"

// Finds or computes the record of the position's pawns, so that `Pawns` and `Figures.passed` hold
// for it.
void PawnProbe();

// Computes the record into `Pawns` whether the table has it or not, and stores nothing.
void PawnCompute();
