#include "search/tree/capture_gain.h"

#include <cstdint>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/position.h"
#include "eval/derived_tables.h"
#include "support/scratch.h"

namespace {

enum : int { A1 = 0, A7 = 48, A8 = 56 };

constexpr Move TakesKnight = MoveWord(A1, A8, ROOK, KNIGHT);
constexpr Move TakesPawn = MoveWord(A1, A7, ROOK, PAWN);

// With a bonus for one minor piece more and, so that nothing else counts, all squares alike.
class ImbalanceGain : public testing::Test {
protected:
    void SetUp() override {
        for (SquareTable* table :
             {&Params.RookMiddlegame, &Params.RookEnding, &Params.KnightMiddlegame,
              &Params.KnightEnding, &Params.PawnMiddlegame, &Params.PawnEnding})
            *table = {};
    }
    void TearDown() override {
        SetStartPosition();
    }
    int32_t Gain(const char* fen, Move move, int32_t minorUp) {
        Params.MinorUp = minorUp;
        InitDerivedTables();
        LoadFen(fen);
        return CaptureGain(move);
    }
    ScratchParameters parameters;
};

} // namespace

TEST_F(ImbalanceGain, IsTheChangeOfTheTableForWhoTakes) {
    // A knight, and an ending entered.
    EXPECT_EQ(325, Gain("n3k3/8/8/8/8/8/8/R3K3 w - -", TakesKnight, 0));
    EXPECT_EQ(325 + 40, Gain("n3k3/8/8/8/8/8/8/R3K3 w - -", TakesKnight, 40));
    EXPECT_EQ(325 + 40, Gain("r3k3/8/8/8/8/8/8/N3K3 b - -", MoveWord(A8, A1, ROOK, KNIGHT), 40));
    // A second minor piece more is worth nothing here.
    EXPECT_EQ(325, Gain("n3k1n1/8/8/8/8/8/8/R3K3 w - -", TakesKnight, 40));
}

TEST_F(ImbalanceGain, IsThatOfAMinorPieceAndMoreWhereTheTableCannotCount) {
    const char* const knight = "n3k3/8/8/8/8/8/8/R3KQQQ w - -";
    EXPECT_EQ(445, Gain(knight, TakesKnight, 0));
    EXPECT_EQ(445 + 40, Gain(knight, TakesKnight, 40));
    EXPECT_EQ(445 - 200, Gain(knight, TakesKnight, -200));
    EXPECT_EQ(445 + 10000, Gain(knight, TakesKnight, INT32_MAX));
    EXPECT_EQ(445 - 10000, Gain(knight, TakesKnight, INT32_MIN));
    // A passed pawn on its first square.
    EXPECT_EQ(127, Gain("4k3/p7/8/8/8/8/8/R3KQQQ w - -", TakesPawn, 40));
}
