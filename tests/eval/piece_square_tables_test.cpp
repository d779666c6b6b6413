#include "eval/parameters/piece_square_tables.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include <gtest/gtest.h>

#include "board/piece_square.h"
#include "support/engine_setup.h"
#include "support/scratch.h"

TEST(PieceSquareTables, CountFromTheOwnEndOfTheBoard) {
    SetUpEngineTables();
    enum { A7 = 48, E1 = 4, E2 = 12, E4 = 28, F3 = 21, G1 = 6, D4 = 27 };
    EXPECT_GT(PstB[PAWN][WHITE][A7], PstB[PAWN][WHITE][A7 ^ 56]);
    EXPECT_GT(PstA[PAWN][WHITE][E4], PstA[PAWN][WHITE][E2]);
    EXPECT_GT(PstA[KNIGHT][WHITE][F3], PstA[KNIGHT][WHITE][G1]);
    EXPECT_GT(PstA[KING][WHITE][G1], PstA[KING][WHITE][E1]);
    EXPECT_GT(PstB[KING][WHITE][D4], PstB[KING][WHITE][G1]);
}

TEST(PieceSquareTables, TheSumsOfAnyBoardFitTheirWidth) {
    const ScratchParameters parameters;
    Params.QueenMiddlegame.fill(INT32_MAX);
    Params.PawnEnding.fill(INT32_MIN);
    InitPieceSquareTables();
    int largest = 0;
    for (const Piece piece : {PAWN, QUEEN}) {
        for (int sq = 0; sq < 64; sq++) {
            largest = std::max(largest, std::abs(PstA[piece][WHITE][sq]));
            largest = std::max(largest, std::abs(PstB[piece][WHITE][sq]));
        }
    }
    EXPECT_GT(largest, 300);
    EXPECT_LE(64 * largest, INT16_MAX);
}
