// What is peculiar to pawns: the ranks that they count, and who may take en passant.
#pragma once

#include "board/position.h"

// As its own side counts: from here a pawn may go two squares, and from here it promotes.
constexpr int DOUBLE_STEP_RANK = 1;
constexpr int PROMOTING_RANK = 6;

// The squares to the left and right of those in the set.
constexpr Bitboard SquaresBeside(Bitboard set) {
    return (set & ~FILE_A) >> 1 | (set & ~FILE_H) << 1;
}

// Pawns of `side` beside the pawn that has just made a double step, none after other moves. A
// pinned one is among them, though it may not be able to take.
inline Bitboard EnPassantTakers(Colour side) {
    const Move last = LastMove();
    return IsDoubleStep(last) ? SquaresBeside(SquareBit(To(last))) & PieceBB[PAWN][side] : 0;
}
