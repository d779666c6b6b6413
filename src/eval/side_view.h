// One side while the evaluation goes through its pieces: what it attacks, and what that is worth.
#pragma once

#include <cstdint>

#include "board/types.h"

struct SideView {
    Bitboard pawnAttacks = 0;
    Bitboard attacks = 0; // of all men but the king
    Bitboard knightAttacks = 0;
    Bitboard bishopAttacks = 0;
    Bitboard rookAttacks = 0;
    Bitboard queenAttacks = 0;
    Bitboard kingZone = 0; // the squares that its attackers must reach
    // What a rook and a bishop on the king's square would attack.
    Bitboard kingLines = 0;
    Bitboard kingDiagonals = 0;
    // Centipawns for this side.
    int32_t middlegame = 0;
    int32_t ending = 0;
    int32_t endingOnly = 0;

    void Add(int32_t inMiddlegame, int32_t inEnding) {
        middlegame += inMiddlegame;
        ending += inEnding;
    }

    // The same for each of so many.
    void Add(int count, int32_t inMiddlegame, int32_t inEnding) {
        middlegame += count * inMiddlegame;
        ending += count * inEnding;
    }
};
