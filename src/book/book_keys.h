// The two keys by which the opening book knows a position.
#pragma once

#include <compare>
#include <cstdint>

// Part of the book's format: a book can only be read with the tables that built it, so neither the
// tables nor their generator may ever change.
struct BookKeys {
    int32_t a;
    int32_t b;

    // In the order of the book's index: by key A, then by key B, as signed numbers.
    friend constexpr auto operator<=>(const BookKeys&, const BookKeys&) = default;
};

// The keys of the position on the board: the men and the side to move. Castling rights and the
// en-passant square take no part.
BookKeys KeysOfPosition();
