#include "eval/eval_cache.h"

#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "eval/evaluate.h"
#include "eval/parameters/personality.h"
#include "eval/position_walk.h"
#include "support/engine_setup.h"

namespace {

// A cache of its own for every test, with the lazy exit out of reach.
class EvalCacheTest : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
        UseCache(EVAL_CACHE_ENTRIES);
        RootSide = WHITE;
        LazyLow = -LAZY_NONE;
        LazyHigh = LAZY_NONE;
    }
    void TearDown() override {
        LazyLow = -LAZY_NONE;
        LazyHigh = LAZY_NONE;
        SetEvalCacheMemory(nullptr, 0);
        SetStartPosition();
    }
    void UseCache(int32_t count) {
        memory.assign(size_t(count + EVAL_CACHE_SPARE_ENTRIES) * EVAL_CACHE_ENTRY_BYTES / 4, 0);
        SetEvalCacheMemory(memory.data(), count);
        ClearEvalCache();
    }

    std::vector<uint32_t> memory;
};

int32_t FullScore() {
    return Evaluate();
}

} // namespace

TEST_F(EvalCacheTest, CachedScoresAreThoseOfFullEvaluations) {
    for (const int32_t count : {EVAL_CACHE_ENTRIES, 1, 7, 1000}) {
        SCOPED_TRACE(count);
        UseCache(count);
        WalkPositions(100, [] {
            // The key leaves the quiet plies out, so they are set alike for both.
            const int32_t quietPlies = FiftyCount;
            const Colour mover = SideToMove;
            FiftyCount = 0;
            for (const Colour side : {mover, ChangeSide(mover), mover, ChangeSide(mover)}) {
                SideToMove = side;
                const int32_t cached = EvaluateCached();
                ASSERT_EQ(FullScore(), cached) << WriteFen();
            }
            SideToMove = mover;
            FiftyCount = quietPlies;
        });
    }
}

TEST_F(EvalCacheTest, WithoutACacheEveryEvaluationIsAFullOne) {
    SetEvalCacheMemory(nullptr, 0);
    ClearEvalCache();
    WalkPositions(50, [] { ASSERT_EQ(FullScore(), EvaluateCached()) << WriteFen(); });
}

// The quiet plies are not in the key: by changing them one can see whether a score is remembered.
TEST_F(EvalCacheTest, RemembersAPositionUntilItIsCleared) {
    LoadFen("r3k2r/8/8/8/8/8/8/R2QK2R w KQkq -");
    const int32_t fresh = EvaluateCached();
    FiftyCount = 100;
    const int32_t faded = FullScore();
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
        EXPECT_EQ(FullScore(), EvaluateCached()) << side;
    }
    SetCowardice(100);
    SetAggressivity(100);
}

TEST_F(EvalCacheTest, OtherCastlingRightsAreAnotherPosition) {
    LoadFen("r3k2r/8/8/8/8/8/8/R2QK2R w KQkq -");
    EvaluateCached();
    FiftyCount = 100;
    CastleRights = WHITE_SHORT;
    EXPECT_EQ(FullScore(), EvaluateCached());
}

TEST_F(EvalCacheTest, AHitBringsBackTheFigures) {
    LoadFen("4k3/8/8/8/8/8/8/2Q1K3 w - -");
    EvaluateCached();
    Figures.AuxScore = Figures.MaterialScore = Figures.optimism[WHITE] = Figures.optimism[BLACK] =
        -1;
    Figures.EvalMasks[WHITE] = Figures.EvalMasks[EVAL_ATTACKS + BLACK] = 1;
    EvaluateCached();
    EXPECT_EQ(6300, Figures.AuxScore);
    EXPECT_EQ(-900, Figures.MaterialScore);
    EXPECT_EQ(0, Figures.optimism[WHITE]);
    EXPECT_EQ(0, Figures.optimism[BLACK]);
    EXPECT_EQ(0u, Figures.EvalMasks[WHITE]);
    EXPECT_EQ(0u, Figures.EvalMasks[EVAL_ATTACKS + BLACK]);
}

TEST_F(EvalCacheTest, HopelessMaterialNeedsNoEvaluation) {
    struct Case {
        const char* name;
        const char* fen;
        Colour rootSide;
        int32_t low, high;
        int32_t score;
    };
    constexpr int32_t none = LAZY_NONE;
    for (const Case& c : {
             Case{"inside", "r3k3/8/8/8/8/8/8/R3K3 w - -", WHITE, -1, 1, none},
             Case{"at the bound", "q2rk3/pp6/8/8/8/8/8/R3K3 w - -", WHITE, -1100, 300, none},
             Case{"below", "q2rk3/pp6/8/8/8/8/8/R3K3 w - -", WHITE, -1099, 300, -1100},
             Case{"above", "q2rk3/pp6/8/8/8/8/8/R3K3 b - -", BLACK, -300, 1099, 1100},
             Case{"the other side's view, below", "q2rk3/pp6/8/8/8/8/8/R3K3 w - -", BLACK, 300,
                  1099, -1100},
             Case{"the other side's view, inside", "q2rk3/pp6/8/8/8/8/8/R3K3 w - -", BLACK, 300,
                  1100, none},
             Case{"the other side's view, above", "4k3/8/8/8/8/8/PP6/R3K1N1 w - -", BLACK, -999, 0,
                  1000},
             Case{"the other side's view, not above", "4k3/8/8/8/8/8/PP6/R3K1N1 w - -", BLACK,
                  -1000, 0, none},
             Case{"a rook alone may not win", "r3k3/p7/8/8/8/8/8/4K3 w - -", WHITE, 0, 1, none},
             Case{"a queen alone may not win", "q3k3/8/8/8/8/8/8/4K3 w - -", WHITE, 0, 1, none},
             Case{"two rooks win", "rr2k3/8/8/8/8/8/8/4K3 w - -", WHITE, 0, 1, -1000},
             Case{"a rook with two pawns may not win", "r3k3/pp6/8/8/8/8/8/4K3 w - -", WHITE, 0, 1,
                  none},
             Case{"two minors with two pawns win", "bn2k3/pp6/8/8/8/8/8/4K3 w - -", WHITE, 0, 1,
                  -800},
             Case{"a pawn about to promote", "rr2k3/6P1/8/8/8/8/8/4K3 w - -", WHITE, -800, 1, none},
             Case{"a pawn about to promote that is not enough", "rr2k3/6P1/8/8/8/8/8/4K3 w - -",
                  WHITE, -799, 1, -800},
             Case{"a pawn near promotion", "rr2k3/8/6P1/8/8/8/8/4K3 w - -", WHITE, -849, 1, -850},
             Case{"a pawn further back", "rr2k3/8/8/6P1/8/8/8/4K3 w - -", WHITE, -899, 1, -900},
             Case{"the defender's pawn", "4k3/8/8/8/8/8/6p1/RR2K3 w - -", WHITE, -1, 799, 800},
             Case{"the defender's pawn is enough", "4k3/8/8/8/8/8/6p1/RR2K3 w - -", WHITE, -1, 800,
                  none},
             Case{"the defender's pawn two steps away", "4k3/8/8/8/8/6p1/8/RR2K3 w - -", WHITE, -1,
                  849, 850},
             Case{"our own pawn does not count", "4k3/6P1/8/8/8/8/8/RR2K3 w - -", WHITE, -1, 1099,
                  1100},
         }) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        RootSide = c.rootSide;
        LazyLow = c.low;
        LazyHigh = c.high;
        EXPECT_EQ(c.score, LazyMaterialScore());
        EXPECT_EQ(c.score != none ? c.score : FullScore(), EvaluateCached());
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
