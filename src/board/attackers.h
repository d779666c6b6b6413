// Questions about attacks in the current position: who attacks what, who is in check, what is
// pinned. Nothing here changes the position.
#pragma once

#include "board/position.h"

// Whether any man of `side` attacks the square.
bool SquareAttacked(Colour side, int square);

// The squares that a man of that code and colour on the square attacks; code 4 and what is no
// piece code attack nothing. Pawn attacks do not ask what stands on their targets.
Bitboard PieceAttacks(int square, Colour colour, int code);

// All men of `side` that attack the square.
Bitboard AttackersOf(Colour side, int square);

// Whether the king of `side` is attacked.
bool InCheck(Colour side);

// The sliders of both colours that stand first beyond `square` on the ray that leaves it in
// `direction`: rooks and queens on lines, bishops and queens on diagonals.
Bitboard SlidersBeyond(int square, Direction direction);

// Whether a pseudo-legal move of the side to move checks the enemy king, directly, by discovery,
// by promotion, en passant or castling. Asked before the move is made.
bool GivesCheck(Move move);

// Whether a pseudo-legal move of a side that is not in check leaves its own king unattacked.
// Asked before the move is made; castling is always legal where the generator made it.
bool IsLegalMove(Move move);
