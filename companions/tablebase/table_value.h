// What a byte of a table means for the side to move. As signed numbers the bytes are in order: the
// better the value, the larger it is.
#pragma once

#include <cstdint>

using TableValue = int8_t;

constexpr TableValue VALUE_DRAW = 0;
constexpr TableValue VALUE_BROKEN = 127; // no position, an illegal one, or an entry without any
constexpr int LONGEST_WIN = 126;         // moves
constexpr int LONGEST_LOSS = 125;

// Mates in `moves`, 1 to LONGEST_WIN.
constexpr TableValue WinIn(int moves) {
    return TableValue(127 - moves);
}
// Is mated in `moves`, 0 to LONGEST_LOSS; 0 is mate on the board.
constexpr TableValue LossIn(int moves) {
    return TableValue(moves - 126);
}
constexpr bool IsWin(TableValue v) {
    return v > 0 && v != VALUE_BROKEN;
}
// Moves to mate of a win or a loss.
constexpr int MovesToMate(TableValue v) {
    return v > 0 ? 127 - v : v + 126;
}
// The worth of a move for who makes it, by the value that the position after it has for the other
// side: a win in n becomes a loss in n, a loss in n a win in n + 1.
constexpr TableValue AfterMove(TableValue v) {
    return TableValue(v > 0 ? 1 - v : -v);
}
