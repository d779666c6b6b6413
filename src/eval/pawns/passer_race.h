// Passed pawns that no king can catch, and who of two such pawns comes first.
#pragma once

#include "board/types.h"

// The foremost pawn of the side on every file where it has a passed one: needs `Pawns` of
// the position.
Bitboard ForemostPassers(Colour side);

// Moves until the side's fastest passed pawn promotes that the enemy king cannot stop; 0 when there
// is none, when an enemy piece could stop it, when an enemy pawn comes so much earlier that the new
// queen will, or when in a pawn ending one that is not sure to be stopped promotes about as soon.
// Needs `Pawns` of the position.
int UnstoppableMoves(Colour side);
