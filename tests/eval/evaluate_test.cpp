#include "eval/evaluate.h"

#include <array>
#include <bit>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "eval/derived_tables.h"
#include "eval/figures.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/term_limit.h"
#include "eval/pawns/pawn_hash.h"
#include "support/board_test.h"
#include "support/scratch.h"

using EvaluateTest = BoardTest;

TEST_F(EvaluateTest, TheRightToMoveIsWorthLessWithFewerMen) {
    struct Case {
        const char* men;
        int tempo;
    };
    for (const Case& c : {
             Case{"rnbqkbnr/8/8/8/8/8/8/RNBQKBNR", 9},
             Case{"r1bqkbnr/8/8/8/8/8/8/RNBQKBNR", 8},   // phase 11
             Case{"r2qkbnr/8/8/8/8/8/8/R2QKBN1", 8},     // 64
             Case{"r2qkbn1/8/8/8/8/8/8/R2QK1N1", 7},     // 96
             Case{"4k3/ppp2ppp/8/8/8/8/PPP2PPP/4K3", 5}, // 256
         }) {
        SCOPED_TRACE(c.men);
        LoadFen((std::string(c.men) + " w - -").c_str());
        const int32_t white = Evaluate();
        SideToMove = BLACK;
        const int32_t black = Evaluate();
        // An attack goes on for who has the move.
        const int32_t attacks =
            (Figures.KingAttackScore[WHITE] >> 3) + (Figures.KingAttackScore[BLACK] >> 3);
        EXPECT_EQ(2 * c.tempo + attacks, white + black);
    }
}

TEST_F(EvaluateTest, BothPieceSquareSumsCountByThePhaseAndAreTruncated) {
    struct Case {
        const char* men;
        int16_t middlegame, ending;
        int32_t tempo;
        int32_t score; // for Black, without the right to move
    };
    for (const Case& c : {
             Case{"rnbqkbnr/8/8/8/8/8/8/RNBQKBNR", -37, 1000, 9, -37}, // phase 0
             Case{"4k3/ppp2ppp/8/8/8/8/PPP2PPP/4K3", 1000, 53, 5, 53}, // 256
             // Half and half: -8.5 and +8.5.
             Case{"qr2k3/8/8/8/8/8/8/QR2K3", -10, -7, 7, -8},
             Case{"qr2k3/8/8/8/8/8/8/QR2K3", 10, 7, 7, 8},
         }) {
        SCOPED_TRACE(testing::Message() << c.men << " " << c.middlegame);
        LoadFen((std::string(c.men) + " b - -").c_str());
        PstSumA = c.middlegame;
        PstSumB = c.ending;
        const int32_t score = Evaluate() - c.tempo;
        EXPECT_EQ(c.score, score - (Figures.KingAttackScore[BLACK] >> 3));
    }
}

TEST_F(EvaluateTest, ScoresFadeWithQuietPlies) {
    struct Case {
        int quietPlies;
        int16_t sum;
        int32_t faded, auxiliary;
    };
    for (const Case& c : {
             Case{8, 1000, 1000, 6300},
             Case{9, 1000, 992, 6250},
             Case{100, 1000, 281, 1771},
             // Truncated toward zero, not downward.
             Case{9, -3, -2, 6250},
         }) {
        SCOPED_TRACE(testing::Message() << c.quietPlies << " " << c.sum);
        LoadFen("qr2k3/8/8/8/8/8/8/QR2K3 b - -");
        PstSumA = PstSumB = c.sum;
        FiftyCount = c.quietPlies;
        EXPECT_EQ(c.faded + 7, Evaluate() - (Figures.KingAttackScore[BLACK] >> 3));
        EXPECT_EQ(c.auxiliary, Figures.AuxScore);
    }
}

TEST_F(EvaluateTest, TheScaleOfADrawishEndingHoldsForTheAuxiliaryScore) {
    LoadFen("2b1k3/5ppp/8/8/8/8/PP3PPP/2B1K3 w - -");
    Evaluate();
    EXPECT_EQ(6300 * Params.OppositeBishopsScale / 256, Figures.AuxScore);
}

TEST_F(EvaluateTest, AnAttackOnAKingCountsInAnEndingToo) {
    LoadFen("5k2/nbNp1pp1/1p3n1r/6Np/2P2P1P/P2B4/1P6/2K1R3 b - -");
    Evaluate();
    EXPECT_NE(0, Figures.EndingFlag[BLACK]);
    EXPECT_EQ(0, Figures.shelter_penalty[BLACK]);
    EXPECT_GT(Figures.KingAttackScore[WHITE], 0);
    EXPECT_EQ(Figures.optimism[WHITE], Figures.KingAttackScore[WHITE]);
}

TEST_F(EvaluateTest, AWeakShelterIsTheOpponentsHope) {
    LoadFen("rnbq1bnr/pppp4/8/6k1/8/8/PPPPPPPP/RNBQKBNR w KQ -");
    const int32_t score = Evaluate();
    EXPECT_GT(Figures.optimism[WHITE], Figures.KingAttackScore[WHITE]);
    LoadFen("rnbqkbnr/pppp4/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -");
    EXPECT_GT(score, Evaluate() + 50);
}

TEST_F(EvaluateTest, ABoardFullOfQueensIsNoMate) {
    LoadFen("QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/k7/K7 w - -");
    EXPECT_LE(Evaluate(), EVAL_LIMIT);
    EXPECT_GT(Evaluate(), EVAL_LIMIT / 2);
}

TEST_F(EvaluateTest, AnyNumbersOfTheFileGiveALimitedScore) {
    const ScratchParameters kept;
    for (const int32_t number : {PARAMETER_LIMIT, -PARAMETER_LIMIT}) {
        std::array<int32_t, EVAL_PARAMETER_COUNT> numbers;
        numbers.fill(number);
        Params = std::bit_cast<EvalParameters>(numbers);
        InitDerivedTables();
        for (const TestPosition& position : VariedPositions()) {
            SCOPED_TRACE(position.name);
            LoadFen(position.fen);
            EXPECT_LE(std::abs(Evaluate()), EVAL_LIMIT);
            EXPECT_LE(std::abs(Pawns.middlegame), TERM_LIMIT);
            FiftyCount = 10000; // nobody has claimed the draw
            EXPECT_LE(std::abs(Evaluate()), EVAL_LIMIT);
        }
    }
}
