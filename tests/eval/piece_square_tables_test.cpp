#include "eval/parameters/piece_square_tables.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include <gtest/gtest.h>

#include "board/piece_square.h"
#include "support/engine_setup.h"
#include "support/scratch.h"

namespace {

constexpr Piece Men[] = {PAWN, KNIGHT, BISHOP, ROOK, QUEEN, KING};

} // namespace

TEST(PieceSquareTables, BlackSeesTheBoardUpsideDown) {
    SetUpEngineTables();
    for (const Piece piece : Men) {
        for (int sq = 0; sq < 64; sq++) {
            SCOPED_TRACE(testing::Message() << "piece " << piece << " square " << sq);
            EXPECT_EQ(PstA[piece][WHITE][sq], PstA[piece][BLACK][sq ^ 56]);
            EXPECT_EQ(PstB[piece][WHITE][sq], PstB[piece][BLACK][sq ^ 56]);
        }
    }
}

TEST(PieceSquareTables, EachSideCountsFromItsOwnEnd) {
    SetUpEngineTables();
    enum { A7 = 48, E1 = 4, E2 = 12, E4 = 28, F3 = 21, G1 = 6, D4 = 27 };
    for (const Colour side : {WHITE, BLACK}) {
        SCOPED_TRACE(side);
        const auto sq = [=](int square) { return side == WHITE ? square : square ^ 56; };
        EXPECT_GT(PstB[PAWN][side][sq(A7)], PstB[PAWN][side][sq(A7) ^ 56]);
        EXPECT_GT(PstA[PAWN][side][sq(E4)], PstA[PAWN][side][sq(E2)]);
        EXPECT_GT(PstA[KNIGHT][side][sq(F3)], PstA[KNIGHT][side][sq(G1)]);
        EXPECT_GT(PstA[KING][side][sq(G1)], PstA[KING][side][sq(E1)]);
        EXPECT_GT(PstB[KING][side][sq(D4)], PstB[KING][side][sq(G1)]);
    }
}

TEST(PieceSquareTables, TheSumsOfAnyBoardFitTheirWidth) {
    const ScratchParameters parameters;
    Params.QueenMiddlegame.fill(INT32_MAX);
    Params.PawnEnding.fill(INT32_MIN);
    InitPieceSquareTables();
    int largest = 0;
    for (const Piece piece : Men) {
        for (int sq = 0; sq < 64; sq++) {
            largest = std::max(largest, std::abs(PstA[piece][WHITE][sq]));
            largest = std::max(largest, std::abs(PstB[piece][WHITE][sq]));
        }
    }
    EXPECT_GT(largest, 300);
    EXPECT_LE(64 * largest, INT16_MAX);
}
