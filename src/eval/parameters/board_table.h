// Tables by square, written in the source as the eye sees a board: rank 8 on top, the a-file left.
#pragma once

#include <array>
#include <cstdint>

// By square as the man's own side counts them: a1 = 0 is its own left corner for White; for Black
// flip the rank with `square ^ 56`.
using SquareTable = std::array<int32_t, 64>;
using BoardRow = std::array<int32_t, 8>;

// One rank, a-file first. Eight arguments, so that a lost comma does not compile.
consteval BoardRow Row(int32_t a, int32_t b, int32_t c, int32_t d, int32_t e, int32_t f, int32_t g,
                       int32_t h) {
    return {a, b, c, d, e, f, g, h};
}

// Eight rows from rank 8 down to rank 1.
consteval SquareTable BoardTable(BoardRow r8, BoardRow r7, BoardRow r6, BoardRow r5, BoardRow r4,
                                 BoardRow r3, BoardRow r2, BoardRow r1) {
    const BoardRow ranks[8] = {r1, r2, r3, r4, r5, r6, r7, r8};
    SquareTable table = {};
    for (int sq = 0; sq < 64; sq++)
        table[sq] = ranks[sq >> 3][sq & 7];
    return table;
}
