// The built-in tables of the parameter set: where men stand well.
//
// Centipawns on top of the man's plain value. The level of a whole table matters too: minor pieces
// and the queen are worth more than their plain values while there are many men, pawns more when
// there are few.
#pragma once

#include "eval/parameters/board_table.h"

// clang-format off

// In the middlegame pawns take the centre and otherwise stay in front of the king.
constexpr SquareTable DefaultPawnMiddlegame = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row(  0,   0,   0,   0,   0,   0,   0,   0),  // 8
    Row( 60,  70,  75,  80,  80,  75,  70,  60),  // 7
    Row( 12,  18,  28,  36,  36,  28,  18,  12),  // 6
    Row(  0,   6,  12,  24,  24,  12,   4,   0),  // 5
    Row( -6,   0,   8,  20,  20,   2,  -6,  -8),  // 4
    Row( -6,  -2,   2,   8,   8,  -4,  -4,  -8),  // 3
    Row( -4,   0,  -2, -14, -14,   6,   6,  -2),  // 2
    Row(  0,   0,   0,   0,   0,   0,   0,   0)); // 1

// In the ending they are there to promote, and the further from the kings the better.
constexpr SquareTable DefaultPawnEnding = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row(  0,   0,   0,   0,   0,   0,   0,   0),  // 8
    Row(110, 106, 100,  96,  96, 100, 106, 110),  // 7
    Row( 64,  60,  54,  50,  50,  54,  60,  64),  // 6
    Row( 34,  30,  26,  22,  22,  26,  30,  34),  // 5
    Row( 18,  16,  12,  10,  10,  12,  16,  18),  // 4
    Row(  8,   8,   6,   4,   4,   6,   8,   8),  // 3
    Row(  4,   4,   4,   2,   2,   4,   4,   4),  // 2
    Row(  0,   0,   0,   0,   0,   0,   0,   0)); // 1

constexpr SquareTable DefaultKnightMiddlegame = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row(-70, -30, -15, -10, -10, -15, -30, -70),  // 8
    Row(-20,  -5,  18,  22,  22,  18,  -5, -20),  // 7
    Row(  0,  22,  38,  46,  46,  38,  22,   0),  // 6
    Row(  8,  22,  38,  46,  46,  38,  22,   8),  // 5
    Row(  4,  20,  34,  40,  40,  34,  20,   4),  // 4
    Row(-10,  12,  28,  30,  30,  28,  12, -10),  // 3
    Row(-20,  -8,  10,  16,  16,  10,  -8, -20),  // 2
    Row(-50, -16, -12,  -6,  -6, -12, -16, -50)); // 1

constexpr SquareTable DefaultKnightEnding = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row(-50, -32, -22, -16, -16, -22, -32, -50),  // 8
    Row(-28, -12,   0,   4,   4,   0, -12, -28),  // 7
    Row(-16,   2,  14,  20,  20,  14,   2, -16),  // 6
    Row(-10,   8,  20,  26,  26,  20,   8, -10),  // 5
    Row(-10,   6,  18,  24,  24,  18,   6, -10),  // 4
    Row(-16,   0,  10,  16,  16,  10,   0, -16),  // 3
    Row(-28, -12,  -4,   2,   2,  -4, -12, -28),  // 2
    Row(-46, -32, -22, -16, -16, -22, -32, -46)); // 1

// Bishops want long diagonals; at home they see none.
constexpr SquareTable DefaultBishopMiddlegame = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row( -4,   2,   2,   2,   2,   2,   2,  -4),  // 8
    Row(  0,  14,  16,  14,  14,  16,  14,   0),  // 7
    Row( 14,  24,  28,  30,  30,  28,  24,  14),  // 6
    Row( 18,  28,  32,  38,  38,  32,  28,  18),  // 5
    Row( 16,  28,  34,  38,  38,  34,  28,  16),  // 4
    Row( 18,  28,  30,  32,  32,  30,  28,  18),  // 3
    Row( 16,  32,  24,  26,  26,  24,  32,  16),  // 2
    Row(  2,   6,  -2,   4,   4,  -2,   6,   2)); // 1

constexpr SquareTable DefaultBishopEnding = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row( -4,   0,   4,   6,   6,   4,   0,  -4),  // 8
    Row(  2,   8,  12,  14,  14,  12,   8,   2),  // 7
    Row(  6,  14,  18,  20,  20,  18,  14,   6),  // 6
    Row(  8,  16,  22,  26,  26,  22,  16,   8),  // 5
    Row(  8,  16,  22,  26,  26,  22,  16,   8),  // 4
    Row(  6,  14,  18,  20,  20,  18,  14,   6),  // 3
    Row(  0,   6,  10,  12,  12,  10,   6,   0),  // 2
    Row( -6,   0,   4,   6,   6,   4,   0,  -6)); // 1

// The middle files open first; in the corner by its own king a rook is shut in.
constexpr SquareTable DefaultRookMiddlegame = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row( 10,  12,  14,  16,  16,  14,  12,  10),  // 8
    Row( 22,  24,  28,  30,  30,  28,  24,  22),  // 7
    Row(  0,   4,   8,  10,  10,   8,   4,   0),  // 6
    Row( -8,  -2,   2,   6,   6,   2,  -2,  -8),  // 5
    Row(-12,  -6,   0,   4,   4,   0,  -6, -12),  // 4
    Row(-14,  -6,   0,   4,   4,   0,  -6, -14),  // 3
    Row(-16,  -6,   0,   4,   4,   0,  -6, -16),  // 2
    Row( -8,  -4,   6,  14,  14,   8,  -6, -12)); // 1

constexpr SquareTable DefaultRookEnding = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row( 16,  16,  16,  16,  16,  16,  16,  16),  // 8
    Row( 22,  22,  20,  20,  20,  20,  22,  22),  // 7
    Row( 14,  14,  14,  12,  12,  14,  14,  14),  // 6
    Row( 12,  12,  12,  10,  10,  12,  12,  12),  // 5
    Row(  8,   8,   8,   8,   8,   8,   8,   8),  // 4
    Row(  2,   4,   4,   4,   4,   4,   4,   2),  // 3
    Row( -2,   0,   2,   2,   2,   2,   0,  -2),  // 2
    Row( -4,   0,   2,   4,   4,   2,   0,  -4)); // 1

// An early queen is only chased about, so going out earns next to nothing.
constexpr SquareTable DefaultQueenMiddlegame = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row( 22,  24,  28,  32,  32,  32,  32,  32),  // 8
    Row( 22,  16,  28,  30,  32,  36,  34,  34),  // 7
    Row( 22,  24,  30,  34,  36,  38,  38,  36),  // 6
    Row( 20,  24,  28,  32,  32,  32,  32,  30),  // 5
    Row( 22,  26,  28,  30,  30,  30,  30,  26),  // 4
    Row( 22,  30,  30,  28,  28,  30,  28,  24),  // 3
    Row( 18,  26,  34,  32,  32,  28,  22,  16),  // 2
    Row( 16,  20,  26,  32,  26,  18,  14,  10)); // 1

constexpr SquareTable DefaultQueenEnding = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row( 24,  32,  38,  42,  42,  38,  32,  24),  // 8
    Row( 28,  40,  48,  54,  54,  48,  40,  28),  // 7
    Row( 32,  44,  54,  60,  60,  54,  44,  32),  // 6
    Row( 34,  46,  56,  64,  64,  56,  46,  34),  // 5
    Row( 30,  42,  52,  60,  60,  52,  42,  30),  // 4
    Row( 22,  34,  42,  46,  46,  42,  34,  22),  // 3
    Row( 12,  20,  26,  30,  30,  26,  20,  12),  // 2
    Row(  4,  10,  14,  18,  18,  14,  10,   4)); // 1

// The king castles and stays there. On its home square it is worth less than in either castle, but
// more than next to it.
constexpr SquareTable DefaultKingMiddlegame = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row(-70, -70, -75, -80, -80, -75, -70, -70),  // 8
    Row(-65, -65, -70, -75, -75, -70, -65, -65),  // 7
    Row(-60, -60, -65, -70, -70, -65, -60, -60),  // 6
    Row(-55, -55, -60, -65, -65, -60, -55, -55),  // 5
    Row(-45, -48, -55, -62, -62, -55, -48, -45),  // 4
    Row(-28, -32, -44, -54, -54, -44, -32, -28),  // 3
    Row(  6,   2, -18, -40, -40, -26,   4,   8),  // 2
    Row( 22,  34,  16, -14,   0, -10,  36,  26)); // 1

// Without queens it fights in the centre.
constexpr SquareTable DefaultKingEnding = BoardTable(
    //   a    b    c    d    e    f    g    h
    Row(-54, -34, -22, -14, -14, -22, -34, -54),  // 8
    Row(-26,  -2,   8,  14,  14,   8,  -2, -26),  // 7
    Row(-10,  16,  26,  32,  32,  26,  16, -10),  // 6
    Row(-14,  16,  30,  38,  38,  30,  16, -14),  // 5
    Row(-20,   8,  24,  32,  32,  24,   8, -20),  // 4
    Row(-24,   0,  14,  20,  20,  14,   0, -24),  // 3
    Row(-34, -12,   0,   6,   6,   0, -12, -34),  // 2
    Row(-58, -38, -26, -20, -20, -26, -38, -58)); // 1

// clang-format on
