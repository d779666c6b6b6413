#include "book/book_keys.h"

#include <array>
#include <bit>
#include <cstddef>

#include "board/position.h"

namespace {

constexpr uint32_t BLACK_TO_MOVE = 131313131; // of key A
constexpr int TABLE_SIZE = PIECE_CODES * 64;

using KeyTable = std::array<uint32_t, TABLE_SIZE>; // by piece code x 64 + square

// One number of the sequence: a counter that advances by the golden ratio's fraction, mixed by two
// multiplications, of which the upper half is taken.
constexpr uint32_t SequenceNumber(uint64_t index) {
    uint64_t mixed = (index + 1) * 0x9E3779B97F4A7C15;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    return uint32_t((mixed ^ mixed >> 31) >> 32);
}

// The four tables follow each other in the sequence, each in the order of its index. The codes that
// no piece has are drawn as well.
consteval KeyTable DrawKeyTable(int number) {
    KeyTable table = {};
    for (size_t i = 0; i < table.size(); i++)
        table[i] = SequenceNumber(uint64_t(number) * TABLE_SIZE + i);
    return table;
}

constexpr KeyTable WhiteA = DrawKeyTable(0);
constexpr KeyTable WhiteB = DrawKeyTable(1);
constexpr KeyTable BlackA = DrawKeyTable(2);
constexpr KeyTable BlackB = DrawKeyTable(3);

} // namespace

BookKeys KeysOfPosition() {
    uint32_t a = SideToMove == BLACK ? BLACK_TO_MOVE : 0;
    uint32_t b = 0;
    for (Bitboard men = Occupied(); men != 0; men &= men - 1) {
        const int sq = std::countr_zero(men);
        const bool white = ColourOn(sq) == WHITE;
        const auto index = size_t(Board[sq]) * 64 + size_t(sq);
        a ^= (white ? WhiteA : BlackA)[index];
        b ^= (white ? WhiteB : BlackB)[index];
    }
    return {int32_t(a), int32_t(b)};
}
