// Light and dark squares, for bishops.
#pragma once

#include "board/types.h"

constexpr Bitboard LIGHT_SQUARES = 0x55aa55aa55aa55aa; // b1, a2 and so on
