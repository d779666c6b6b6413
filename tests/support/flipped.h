// The position as another would see it: what must not prefer a colour or a wing is held against it.
#pragma once

#include <string>

#include "board/position.h"

// FEN of the current position with colours exchanged and the board upside down.
std::string FlippedFen();
// The same of the position that the text sets up, which is then on the board.
std::string FlippedFen(const std::string& fen);

// FEN of the current position with the files exchanged, a with h and so on; without castling
// rights.
std::string MirroredFen();

// The move with the board upside down.
constexpr Move FlippedMove(Move move) {
    return move ^ (56 | 56 << 6);
}
