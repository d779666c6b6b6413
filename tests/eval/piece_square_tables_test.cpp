#include "eval/parameters/piece_square_tables.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include <gtest/gtest.h>

#include "board/piece_square.h"
#include "support/scratch.h"

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
