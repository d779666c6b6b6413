#include "eval/eval_cache.h"

#include <vector>

#include <gtest/gtest.h>

#include "eval/evaluate.h"
#include "eval/figures.h"
#include "eval/parameters/personality.h"
#include "support/board_test.h"

namespace {

// A cache of its own for every test, with the lazy exit out of reach.
class EvalCacheTest : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        UseCache(EVAL_CACHE_ENTRIES);
        RootSide = WHITE;
        LazyLow = -LAZY_NONE;
        LazyHigh = LAZY_NONE;
    }
    void TearDown() override {
        LazyLow = -LAZY_NONE;
        LazyHigh = LAZY_NONE;
        SetEvalCacheMemory(nullptr, 0);
        BoardTest::TearDown();
    }
    void UseCache(int32_t count) {
        memory.assign(size_t(count + EVAL_CACHE_SPARE_ENTRIES) * EVAL_CACHE_ENTRY_BYTES / 4, 0);
        SetEvalCacheMemory(memory.data(), count);
        ClearEvalCache();
    }

    std::vector<uint32_t> memory;
};

} // namespace

TEST_F(EvalCacheTest, WithACacheOfAnySizeAScoreIsThatOfAFullEvaluation) {
    for (const int32_t count : {EVAL_CACHE_ENTRIES, 1000, 1, 0}) {
        SCOPED_TRACE(count);
        UseCache(count);
        WalkRandomGames(20, [] {
            // The key leaves the quiet plies out, so they are set alike for both.
            const int32_t quietPlies = FiftyCount;
            const Colour mover = SideToMove;
            FiftyCount = 0;
            for (const Colour side : {mover, ChangeSide(mover), mover, ChangeSide(mover)}) {
                SideToMove = side;
                const int32_t cached = EvaluateCached();
                ASSERT_EQ(Evaluate(), cached) << WriteFen();
            }
            SideToMove = mover;
            FiftyCount = quietPlies;
        });
    }
}

// The quiet plies are not in the key: by changing them one can see whether a score is remembered.
TEST_F(EvalCacheTest, RemembersAPositionUntilItIsCleared) {
    LoadFen("r3k2r/8/8/8/8/8/8/R2QK2R w KQkq -");
    const int32_t fresh = EvaluateCached();
    FiftyCount = 100;
    const int32_t faded = Evaluate();
    ASSERT_NE(fresh, faded);
    EXPECT_EQ(fresh, EvaluateCached());
    ClearEvalCache();
    EXPECT_EQ(faded, EvaluateCached());
}

TEST_F(EvalCacheTest, ForgetsWhatThePersonalityOfTheOtherRootSideHasWeighed) {
    SetCowardice(300);
    SetAggressivity(0);
    LoadFen("r2q1rk1/ppp2ppp/8/8/8/8/P1P4P/R2QKR2 w - -");
    for (const Colour side : {WHITE, BLACK, WHITE}) {
        SetRootSide(side);
        EXPECT_EQ(Evaluate(), EvaluateCached()) << side;
    }
    SetCowardice(100);
    SetAggressivity(100);
}

TEST_F(EvalCacheTest, OtherCastlingRightsAreAnotherPosition) {
    LoadFen("r3k2r/8/8/8/8/8/8/R2QK2R w KQkq -");
    EvaluateCached();
    FiftyCount = 100;
    CastleRights = WHITE_SHORT;
    EXPECT_EQ(Evaluate(), EvaluateCached());
}

TEST_F(EvalCacheTest, AHitBringsBackTheFindings) {
    LoadFen("4k3/8/8/8/8/8/8/2Q1K3 w - -");
    EvaluateCached();
    Figures.AuxScore = Figures.MaterialScore = Figures.optimism[WHITE] = Figures.optimism[BLACK] =
        -1;
    Figures.passed[WHITE] = Figures.attacks[BLACK] = 1;
    EvaluateCached();
    EXPECT_EQ(6300, Figures.AuxScore);
    EXPECT_EQ(-900, Figures.MaterialScore);
    EXPECT_EQ(0, Figures.optimism[WHITE]);
    EXPECT_EQ(0, Figures.optimism[BLACK]);
    EXPECT_EQ(0u, Figures.passed[WHITE]);
    EXPECT_EQ(0u, Figures.attacks[BLACK]);
}

TEST_F(EvalCacheTest, HopelessMaterialNeedsNoEvaluation) {
    struct Case {
        const char* fen;
        Colour rootSide;
        int32_t low, high;
        int32_t score;
    };
    constexpr int32_t none = LAZY_NONE;
    const char* const down = "q2rk3/pp6/8/8/8/8/8/R3K3 w - -";
    for (const Case& c : {
             Case{"r3k3/8/8/8/8/8/8/R3K3 w - -", WHITE, -1, 1, none},
             Case{down, WHITE, -1100, 300, none},
             Case{down, WHITE, -1099, 300, -1100},
             Case{"q2rk3/pp6/8/8/8/8/8/R3K3 b - -", BLACK, -300, 1099, 1100},
             // The window is the other side's.
             Case{down, BLACK, 300, 1099, -1100},
             Case{down, BLACK, 300, 1100, none},
             // Too little to win, with few pawns and with two, and enough.
             Case{"r3k3/p7/8/8/8/8/8/4K3 w - -", WHITE, 0, 1, none},
             Case{"r3k3/pp6/8/8/8/8/8/4K3 w - -", WHITE, 0, 1, none},
             Case{"bn2k3/pp6/8/8/8/8/8/4K3 w - -", WHITE, 0, 1, -800},
             // Hope by a pawn one step from promotion, and two.
             Case{"rr2k3/6P1/8/8/8/8/8/4K3 w - -", WHITE, -800, 1, none},
             Case{"rr2k3/8/6P1/8/8/8/8/4K3 w - -", WHITE, -849, 1, -850},
             Case{"4k3/8/8/8/8/8/6p1/RR2K3 w - -", WHITE, -1, 799, 800},
             Case{"4k3/8/8/8/8/6p1/8/RR2K3 w - -", WHITE, -1, 849, 850},
         }) {
        SCOPED_TRACE(testing::Message() << c.fen << " " << c.low << " " << c.high);
        LoadFen(c.fen);
        RootSide = c.rootSide;
        LazyLow = c.low;
        LazyHigh = c.high;
        EXPECT_EQ(c.score, LazyMaterialScore());
        EXPECT_EQ(c.score != none ? c.score : Evaluate(), EvaluateCached());
    }
}

TEST_F(EvalCacheTest, NoMaterialLooksLikeAMate) {
    LoadFen("QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/8/k7/K7 w - -");
    LazyLow = -100;
    LazyHigh = 100;
    EXPECT_EQ(EVAL_LIMIT, LazyMaterialScore());
    SideToMove = BLACK;
    EXPECT_EQ(-EVAL_LIMIT, LazyMaterialScore());
}
