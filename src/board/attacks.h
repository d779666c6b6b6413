// Precomputed attack tables, written once at start-up and read-only afterwards.
//
// A slider's attacks along a line are looked up by the line's occupancy: the position keeps eight
// bits for each rank, file and diagonal, `LineConfig` turns such a byte and the slider's place on
// the line into one of 70 configurations, and a table per direction gives the squares.
#pragma once

#include "board/types.h"

constexpr int LINE_CONFIGS = 70;

// [occupancy * 8 + position on the line] -> configuration 0..69. It depends only on the position
// and the nearest men below and above it, so the slider's own bit does not matter.
extern uint8_t LineConfig[256 * 8];

// Squares attacked along one line, up to and including the first man in each direction.
extern Bitboard RankAttackTable[LINE_CONFIGS * 8];      // conf * 8 + rank
extern Bitboard FileAttackTable[LINE_CONFIGS * 8];      // conf * 8 + file
extern Bitboard DiagAttackTable[LINE_CONFIGS * 16];     // conf * 16 + file + rank
extern Bitboard AntiDiagAttackTable[LINE_CONFIGS * 16]; // conf * 16 + file - rank + 7

extern Bitboard KnightAttacks[64];
extern Bitboard KingAttacks[64];
// By colour: the squares that a pawn of that colour on the square attacks. A pawn of the other
// colour attacks the square from exactly these.
extern Bitboard PawnAttacks[2][64];
// Rook and bishop attacks on the empty board.
extern Bitboard RookRays[64];
extern Bitboard BishopRays[64];

// The eight directions as the eye sees them on a board with a1 at the lower left.
enum Direction : uint8_t {
    NO_DIRECTION,
    EAST,
    WEST,
    NORTH,
    SOUTH,
    NORTH_EAST,
    SOUTH_WEST,
    NORTH_WEST,
    SOUTH_EAST,
    DIRECTIONS
};

// [from][to]: the direction from one square to another on the same rank, file or diagonal, else
// NO_DIRECTION. So is the direction from a square to itself.
extern Direction DirectionTo[64][64];
// [direction][square]: the squares from the square to the edge in that direction, without it.
extern Bitboard Ray[DIRECTIONS][64];
// [a][b]: the squares strictly between two squares on a common line, else none.
extern Bitboard Between[64][64];

// By colour and square: the squares ahead on its own and both neighbouring files. A pawn with no
// enemy pawn in it is passed.
extern Bitboard PassedMask[2][64];

// Fills every table. Called once at start-up, before anything else touches the board.
void InitAttackTables();
