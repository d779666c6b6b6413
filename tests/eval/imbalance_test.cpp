#include "eval/material/imbalance.h"

#include <algorithm>
#include <cstdint>
#include <random>

#include <gtest/gtest.h>

#include "eval/derived_tables.h"
#include "eval/material/material.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/values_file.h"
#include "support/scratch.h"

namespace {

class Imbalance : public testing::Test {
protected:
    void SetUp() override {
        Params = {};
    }
    void Ship() {
        LoadParameters(TARQUELIN_SOURCE_DIR "/data/values.txt");
    }
    ScratchParameters parameters;
};

} // namespace

TEST_F(Imbalance, IsNoneWithoutAFile) {
    InitDerivedTables();
    EXPECT_TRUE(std::ranges::all_of(
        MaterialTable, [](const MaterialEntry& entry) { return entry.adjustment == 0; }));
}

TEST_F(Imbalance, ChangesItsSignWithTheColours) {
    Ship();
    std::mt19937 random(7);
    const auto side = [&](int most) {
        const auto count = [&](int limit) { return int(random() % unsigned(limit + 1)); };
        return MenOfSide{count(8), count(most), count(most), count(most), count(most)};
    };
    int nonzero = 0;
    for (int i = 0; i < 50000; i++) {
        const MenOfSide white = side(2 + i % 2);
        const MenOfSide black = side(2 + i % 2);
        ASSERT_EQ(MaterialImbalance(white, black), -MaterialImbalance(black, white)) << i;
        nonzero += MaterialImbalance(white, black) != 0;
    }
    EXPECT_GT(nonzero, 40000);
}

// Each number alone, for Black: pawns, knights, bishops, rooks, queens.
TEST_F(Imbalance, NumbersCountWhereTheirNamesSay) {
    using P = EvalParameters;
    struct Case {
        const char* name;
        int32_t P::*parameter;
        MenOfSide white, black;
        int adjustment;
    };
    for (const Case& c : {
             Case{"a minor more", &P::MinorUp, {5, 1, 0, 0, 0}, {5, 1, 1, 0, 0}, 10},
             Case{"two are more only once", &P::MinorUp, {5, 0, 0, 1, 0}, {5, 1, 1, 0, 0}, 10},
             Case{"one for a rook", &P::MinorUp, {5, 1, 0, 0, 0}, {5, 0, 0, 1, 0}, -10},
             Case{"the second", &P::SecondMinorUp, {5, 0, 0, 1, 0}, {5, 1, 1, 0, 0}, 10},
             Case{"no second", &P::SecondMinorUp, {5, 0, 0, 1, 0}, {5, 0, 1, 1, 0}, 0},
             Case{"for three", &P::MinorForPawns, {5, 1, 0, 1, 0}, {2, 2, 0, 1, 0}, 10},
             Case{"for one", &P::MinorForPawns, {5, 1, 0, 1, 0}, {4, 2, 0, 1, 0}, 0},
             Case{"for pawns, rook", &P::MinorForPawns, {5, 1, 0, 2, 0}, {2, 2, 0, 1, 0}, 0},
             Case{
                 "with queens", &P::MinorForPawnsWithQueens, {2, 1, 0, 0, 1}, {5, 0, 0, 0, 1}, -10},
             Case{"without", &P::MinorForPawnsWithQueens, {2, 1, 0, 0, 0}, {5, 0, 0, 0, 0}, 0},
             Case{"each own", &P::MinorForPawnsPerOwnPawn, {6, 0, 0, 0, 0}, {3, 0, 1, 0, 0}, 30},
             Case{"for a rook", &P::TwoMinorsForRook, {6, 0, 0, 2, 1}, {5, 1, 1, 1, 1}, 10},
             Case{"for a queen", &P::TwoMinorsForRook, {6, 0, 0, 1, 1}, {5, 1, 1, 1, 0}, 0},
             Case{"beyond ten", &P::TwoMinorsForRookPerPawn, {7, 0, 0, 1, 0}, {6, 1, 1, 0, 0}, 30},
             Case{"the exchange", &P::RookForMinor, {5, 1, 1, 1, 0}, {5, 1, 0, 2, 0}, 10},
             Case{"below ten", &P::RookForMinorPerPawn, {3, 1, 0, 1, 0}, {3, 0, 0, 2, 0}, -40},
             Case{"pair", &P::RookForMinorAgainstPair, {5, 0, 2, 1, 0}, {5, 0, 1, 2, 0}, 10},
             Case{"no pair", &P::RookForMinorAgainstPair, {5, 1, 1, 1, 0}, {5, 0, 1, 2, 0}, 0},
             Case{"bishops", &P::BishopPairPerPawn, {8, 1, 1, 0, 0}, {8, 0, 2, 0, 0}, 60},
             Case{"both", &P::BishopPairPerPawn, {8, 1, 2, 0, 0}, {8, 1, 2, 0, 0}, 0},
             Case{"knights", &P::KnightPair, {5, 2, 0, 0, 0}, {5, 1, 1, 0, 0}, -10},
             Case{"rooks", &P::RookPair, {5, 0, 0, 1, 0}, {5, 0, 0, 2, 0}, 10},
             Case{"by a queen", &P::RookBesideQueen, {5, 0, 0, 2, 0}, {5, 0, 0, 2, 1}, 20},
             Case{"queens", &P::SecondQueen, {0, 0, 0, 0, 3}, {0, 0, 0, 0, 1}, -20},
             Case{"no queen", &P::SecondQueen, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, 0},
             Case{"two rooks", &P::QueenForRooks, {5, 1, 0, 2, 0}, {5, 0, 1, 0, 1}, 10},
             Case{"each", &P::QueenForRooksPerMinor, {5, 1, 0, 2, 0}, {5, 0, 1, 0, 1}, 20},
             Case{"rook, minor", &P::QueenForRookAndMinor, {5, 1, 0, 1, 0}, {5, 0, 0, 0, 1}, 10},
             Case{"minors", &P::QueenForMinors, {5, 2, 1, 1, 0}, {5, 0, 0, 1, 1}, 10},
             Case{"rook for pawns", &P::RookForPawns, {5, 1, 0, 0, 0}, {2, 0, 1, 1, 0}, 10},
             Case{"rook for two", &P::RookForPawns, {5, 1, 0, 0, 0}, {3, 0, 1, 1, 0}, 0},
             Case{"no majors", &P::NoMajors, {5, 1, 1, 0, 0}, {5, 0, 0, 1, 0}, -10},
             Case{"majors", &P::NoMajors, {5, 1, 1, 0, 0}, {5, 2, 1, 0, 0}, 0},
             Case{"ahead", &P::LeaderPerPieceGone, {5, 1, 1, 2, 0}, {5, 2, 1, 2, 0}, 50},
             Case{"pieces for pawns", &P::LeaderPerPieceGone, {5, 1, 1, 2, 0}, {2, 2, 1, 2, 0}, 0},
         }) {
        SCOPED_TRACE(c.name);
        Params = {};
        Params.*c.parameter = 10;
        EXPECT_EQ(c.adjustment, MaterialImbalance(c.white, c.black));
    }
}

TEST_F(Imbalance, PiecesChangeTheirWorthWithThePawns) {
    // 10 centipawns for each pawn of its own, 1 for each of the opponent's, beyond the fifth.
    const MenOfSide knight = {7, 1, 0, 0, 0}, bishop = {7, 0, 1, 0, 0}, rooks = {7, 0, 0, 2, 0},
                    queen = {7, 0, 0, 0, 1};
    const MenOfSide fewPawns = {1, 0, 0, 0, 0};
    const MenOfSide* const sides[] = {&knight, &bishop, &rooks, &queen};
    for (size_t i = 0; i < 4; i++) {
        SCOPED_TRACE(i);
        Params = {};
        Params.PieceByOwnPawns[i] = 160;
        Params.PieceByOpponentPawns[i] = 16;
        const int pieces = i == 2 ? 2 : 1;
        for (size_t j = 0; j < 4; j++) {
            const int expected = i == j ? pieces * (2 * 10 - 4 * 1) : 0;
            EXPECT_EQ(expected, MaterialImbalance(fewPawns, *sides[j]));
            EXPECT_EQ(-expected, MaterialImbalance(*sides[j], fewPawns));
        }
    }
}

TEST_F(Imbalance, HasATableByPieces) {
    // Queens yes and no, then rooks 1 2, bishops 2 0, knights 1 1: white, then black.
    const int cell = ((((((1 * 2 + 0) * 3 + 1) * 3 + 2) * 3 + 1) * 3 + 2) * 3 + 0) * 3 + 1;
    Params.ImbalanceTable[cell] = 77;
    const MenOfSide white = {3, 1, 2, 1, 1}, black = {8, 1, 0, 2, 0};
    EXPECT_EQ(77, MaterialImbalance(white, black));
    EXPECT_EQ(0, MaterialImbalance(black, white));
    // What the table does not count is taken for the most that it does.
    const MenOfSide manyWhite = {3, 1, 4, 1, 2}, manyBlack = {8, 1, 0, 10, 0};
    EXPECT_EQ(77, MaterialImbalance(manyWhite, manyBlack));
}

TEST_F(Imbalance, StaysInItsWidth) {
    const MenOfSide white = {0, 0, 0, 0, 0}, black = {62, 30, 30, 30, 30};
    for (const int32_t extreme : {INT32_MAX, INT32_MIN}) {
        SCOPED_TRACE(extreme);
        Params.PieceByOwnPawns.fill(extreme);
        Params.RookPair = Params.LeaderPerPieceGone = Params.BishopPairPerPawn = extreme;
        Params.ImbalanceTable.fill(extreme);
        const int limit = extreme > 0 ? INT16_MAX : INT16_MIN;
        EXPECT_EQ(limit, MaterialImbalance(white, black));
    }
}

// The shipped numbers, for Black.
TEST_F(Imbalance, FollowsTheRulesOfThumb) {
    Ship();
    const auto value = [](MenOfSide white, MenOfSide black) {
        return MaterialImbalance(white, black);
    };
    // Both sides have the same at the start.
    EXPECT_EQ(0, value({8, 2, 2, 2, 1}, {8, 2, 2, 2, 1}));
    // Two minor pieces are better than rook and pawn, and a piece is better than three pawns.
    EXPECT_GT(value({7, 1, 1, 2, 1}, {6, 2, 2, 1, 1}), 30);
    EXPECT_GT(value({8, 1, 2, 2, 1}, {5, 2, 2, 2, 1}), 20);
    // The exchange gains worth when pawns and pieces go, and has less against two bishops.
    const int full = value({8, 2, 2, 1, 1}, {8, 2, 1, 2, 1});
    EXPECT_LT(full, 0);
    EXPECT_GT(value({4, 1, 0, 1, 0}, {4, 0, 0, 2, 0}), full + 40);
    EXPECT_LT(value({5, 1, 2, 1, 0}, {5, 1, 1, 2, 0}), value({5, 2, 1, 1, 0}, {5, 2, 0, 2, 0}));
    // A queen holds her own against two rooks while there are minor pieces.
    EXPECT_GT(value({6, 2, 1, 2, 0}, {6, 2, 1, 0, 1}), value({6, 0, 0, 2, 0}, {6, 0, 0, 0, 1}));
}
