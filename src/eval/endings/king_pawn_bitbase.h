// Who wins with king and pawn against the bare king: an exact table.
#pragma once

#include "board/types.h"

// Solves all positions. Called once at start-up, after the attack tables are filled.
void InitKingPawnBitbase();

// Whether `strong`, who has the pawn, wins. Positions that cannot arise in play (kings in touch,
// men on one square, the bare king in check and not to move, a pawn on the first or last rank) are
// no wins.
bool KingPawnWins(Colour strong, int strongKing, int pawn, int bareKing, Colour sideToMove);
