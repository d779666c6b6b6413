// What is peculiar to pawns: ranks, ways, attacks, and who may take en passant.
#pragma once

#include "board/position.h"

// As its own side counts: from here a pawn may go two squares, and from here it promotes.
constexpr int DOUBLE_STEP_RANK = 1;
constexpr int PROMOTING_RANK = 6;

// All squares that pawns of `Us` on those squares attack.
template <Colour Us> constexpr Bitboard AttackedByPawns(Bitboard pawns) {
    return SquaresBeside(Ahead<Us>(pawns));
}

// The squares before a pawn of `Us`, up to its promotion.
template <Colour Us> inline Bitboard PathAhead(int pawn) {
    return PassedMask[Us][pawn] & FileBB(FileOf(pawn));
}

// Where a pawn of `Us` on that square promotes.
template <Colour Us> constexpr int PromotionSquare(int pawn) {
    return FileOf(pawn) + (Us == WHITE ? 56 : 0);
}

// Pawns of `side` beside the pawn with which the opponent has just made a double step. There are
// none after other moves, and none when the side stepped itself and was given the turn again. A
// pinned one is among them, though it may not be able to take.
inline Bitboard EnPassantTakers(Colour side) {
    const Move last = LastMove();
    return IsDoubleStep(ChangeSide(side), last)
               ? SquaresBeside(SquareBit(To(last))) & PieceBB[PAWN][side]
               : 0;
}
