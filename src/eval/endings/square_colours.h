// Light and dark squares, for bishops.
#pragma once

#include "board/types.h"

constexpr Bitboard LIGHT_SQUARES = 0x55aa55aa55aa55aa; // b1, a2 and so on

// All squares of the colour that the square has.
constexpr Bitboard SquaresLike(int sq) {
    return SquareBit(sq) & LIGHT_SQUARES ? LIGHT_SQUARES : ~LIGHT_SQUARES;
}
