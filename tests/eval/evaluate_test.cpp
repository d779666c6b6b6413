#include "eval/evaluate.h"

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "eval/parameters/parameters.h"
#include "eval/position_walk.h"
#include "support/engine_setup.h"
#include "support/flipped.h"

namespace {

class EvaluateTest : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
        RootSide = WHITE;
    }
    void TearDown() override {
        SetStartPosition();
    }
};

int32_t Score() {
    return Evaluate();
}

int32_t FlippedScore() {
    const int32_t quietPlies = FiftyCount;
    LoadFen(FlippedFen().c_str());
    FiftyCount = quietPlies;
    RootSide = ChangeSide(RootSide);
    const int32_t score = Score();
    RootSide = ChangeSide(RootSide);
    return score;
}

} // namespace

TEST_F(EvaluateTest, ExchangedColoursGiveTheSameScore) {
    std::vector<std::pair<std::string, int32_t>> positions;
    WalkPositions(150, [&] { positions.emplace_back(WriteFen(), FiftyCount); });
    for (const auto& [fen, quietPlies] : positions) {
        LoadFen(fen.c_str());
        FiftyCount = quietPlies;
        const int32_t score = Score();
        const int32_t phases[] = {Figures.current_phase, Figures.white_phase, Figures.black_phase};
        const int32_t balance = Figures.MaterialScore;
        ASSERT_EQ(score, FlippedScore()) << fen;
        EXPECT_EQ(phases[0], Figures.current_phase) << fen;
        EXPECT_EQ(phases[1], Figures.black_phase) << fen;
        EXPECT_EQ(phases[2], Figures.white_phase) << fen;
        EXPECT_EQ(balance, -Figures.MaterialScore) << fen;
    }
}

TEST_F(EvaluateTest, TheRightToMoveIsWorthLessWithFewerMen) {
    struct Case {
        const char* men;
        int tempo;
    };
    for (const Case& c : {
             Case{"rnbqkbnr/8/8/8/8/8/8/RNBQKBNR", 9},
             Case{"r1bqkbnr/8/8/8/8/8/8/RNBQKBNR", 8}, // phase 11
             Case{"r2qkbnr/8/8/8/8/8/8/R2QKBN1", 8},   // 64
             Case{"r2qkbn1/8/8/8/8/8/8/R2QK1N1", 7},   // 96
             Case{"rn2k1nr/8/8/8/8/8/8/RN2K1NR", 7},   // 128
             Case{"r3k1nr/8/8/8/8/8/8/RN2K1NR", 6},    // 139
             // With few men, pawns keep the game open.
             Case{"2r1k1n1/ppp2ppp/8/8/8/8/PPP2PPP/2R1K1N1", 6}, // 192
             Case{"4k1n1/ppp2ppp/8/8/8/8/PPP2PPP/2R1K1N1", 5},   // 213
             Case{"4k3/ppp2ppp/8/8/8/8/PPP2PPP/4K3", 5},         // 256
         }) {
        SCOPED_TRACE(c.men);
        LoadFen((std::string(c.men) + " w - -").c_str());
        const int32_t white = Score();
        SideToMove = BLACK;
        const int32_t black = Score();
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
        const int32_t score = Score() - c.tempo;
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
             Case{0, 1000, 1000, 6300},
             Case{8, 1000, 1000, 6300},
             Case{9, 1000, 992, 6250},
             Case{100, 1000, 281, 1771},
             // Truncated toward zero, not downward.
             Case{9, -3, -2, 6250},
             Case{100, -1000, -281, 1771},
         }) {
        SCOPED_TRACE(testing::Message() << c.quietPlies << " " << c.sum);
        LoadFen("qr2k3/8/8/8/8/8/8/QR2K3 b - -");
        PstSumA = PstSumB = c.sum;
        FiftyCount = c.quietPlies;
        EXPECT_EQ(c.faded + 7, Score() - (Figures.KingAttackScore[BLACK] >> 3));
        EXPECT_EQ(c.auxiliary, Figures.AuxScore);
    }
}

TEST_F(EvaluateTest, TheScaleOfADrawishEndingHoldsForTheAuxiliaryScore) {
    LoadFen("2b1k3/5ppp/8/8/8/8/PP3PPP/2B1K3 w - -");
    Score();
    EXPECT_EQ(6300 * Params.OppositeBishopsScale / 256, Figures.AuxScore);
}

TEST_F(EvaluateTest, AnAttackOnAKingCountsInAnEndingToo) {
    LoadFen("5k2/nbNp1pp1/1p3n1r/6Np/2P2P1P/P2B4/1P6/2K1R3 b - -");
    Score();
    EXPECT_NE(0, Figures.EndingFlag[BLACK]);
    EXPECT_GT(Figures.KingAttackScore[WHITE], 0);
    EXPECT_EQ(Figures.optimism[WHITE], Figures.KingAttackScore[WHITE]);
}

TEST_F(EvaluateTest, MaterialIsBlackLessWhiteAndCountsForItsOwner) {
    LoadFen("4k2r/pp6/8/8/8/8/P7/4KQ2 w - -");
    const int32_t white = Score();
    EXPECT_EQ(700 - 1000, Figures.MaterialScore);
    EXPECT_GT(white, 200);
    SideToMove = BLACK;
    EXPECT_LT(Score(), -200);
}

TEST_F(EvaluateTest, NothingIsLeftOverFromThePositionBefore) {
    SetStartPosition();
    for (const Colour side : {WHITE, BLACK}) {
        Figures.optimism[side] = Figures.shelter_penalty[side] = Figures.Danger[side] =
            Figures.KingAttackScore[side] = 7;
        Figures.EvalMasks[side] = Figures.EvalMasks[EVAL_ATTACKS + side] = ~uint64_t{0};
    }
    Figures.AuxScore = Figures.current_phase = Figures.white_phase = Figures.black_phase =
        Figures.MaterialScore = 7;
    LoadFen("4k3/pp6/8/8/8/8/PP6/4K3 w - -");
    Score();
    for (const Colour side : {WHITE, BLACK}) {
        EXPECT_EQ(0, Figures.optimism[side]);
        EXPECT_EQ(0, Figures.shelter_penalty[side]);
        EXPECT_EQ(0, Figures.Danger[side]);
        EXPECT_EQ(0, Figures.KingAttackScore[side]);
        EXPECT_EQ(0u, Figures.EvalMasks[side]);
    }
    EXPECT_EQ(256, Figures.current_phase);
    EXPECT_EQ(256, Figures.white_phase);
    EXPECT_EQ(256, Figures.black_phase);
    EXPECT_EQ(0, Figures.MaterialScore);
    EXPECT_EQ(6300, Figures.AuxScore);
}

TEST_F(EvaluateTest, ABoardFullOfQueensIsNoMate) {
    for (const char* fen : {"QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/k7/K7 w - -",
                            "qqqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/qqqqqqqq/K7/k7 w - -"}) {
        SCOPED_TRACE(fen);
        LoadFen(fen);
        EXPECT_LE(std::abs(Score()), EVAL_LIMIT);
        EXPECT_GE(std::abs(Score()), EVAL_LIMIT / 2);
    }
}
