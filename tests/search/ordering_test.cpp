#include "search/tree/ordering.h"

#include <algorithm>
#include <iterator>

#include "board/fen.h"
#include "search/state.h"
#include "support/scratch.h"
#include "support/search_test.h"

namespace {

constexpr Move KnightOut = MoveWord(6, 21, KNIGHT);

class OrderingTest : public SearchingTest {};

} // namespace

TEST_F(OrderingTest, ARewardBelowOnePlyLeavesATrace) {
    for (const int32_t depth : {0, 59, -59, 60}) {
        EXPECT_EQ(depth < 60 ? "?" : "", Printed([&] { RewardQuiet(KnightOut, depth, 0); }));
    }
}

TEST_F(OrderingTest, AKillerMustFitThePosition) {
    constexpr Move rookUp = MoveWord(0, 24, ROOK); // a1-a4
    constexpr Move rookTakes = MoveWord(0, 24, ROOK, KNIGHT);
    constexpr Move doubleStep = MoveWord(11, 27, PAWN); // d2-d4
    struct Case {
        const char* name;
        const char* fen;
        Move move;
        bool fits;
    };
    for (const Case& c : {
             Case{"free", "4k3/8/8/8/8/8/8/R3K3 w - -", rookUp, true},
             Case{"the same man to take", "4k3/8/8/8/n7/8/8/R3K3 w - -", rookTakes, true},
             Case{"another man to take", "4k3/8/8/8/b7/8/8/R3K3 w - -", rookTakes, false},
             Case{"an own man to take", "4k3/8/8/8/N7/8/8/R3K3 w - -", rookTakes, false},
             Case{"another man there", "4k3/8/8/8/8/8/8/Q3K3 w - -", rookUp, false},
             Case{"a double step blocked", "4k3/8/8/8/8/3n4/3P4/4K3 w - -", doubleStep, false},
             Case{"a knight jumps", "4k3/8/8/8/8/8/4PPPP/4KBNR w - -", KnightOut, true},
             Case{"none", "4k3/8/8/8/8/8/8/R3K3 w - -", NO_MOVE, false},
             Case{"castling without the right", "4k3/8/8/8/8/8/8/R3K2R w Q -", WHITE_CASTLES_SHORT,
                  false},
             Case{"castling over an attacked square", "4kr2/8/8/8/8/8/8/R3K2R w KQ -",
                  WHITE_CASTLES_SHORT, false},
         }) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(c.fits, KillerFits(c.move));
    }
}

TEST_F(OrderingTest, LosingCapturesAreCountedAndHalved) {
    const Move capture = MoveWord(1, 28, QUEEN, PAWN);
    const int slot = CaptureStatsIndex(capture, BLACK);
    HashAge = 3;
    for (int i = 0; i < 64; i++)
        UpdateCaptureStats(capture, BLACK, i % 2 == 0);
    EXPECT_EQ(64, CaptureStats.tries[slot]);
    EXPECT_EQ(32, CaptureStats.successes[slot]);
    UpdateCaptureStats(capture, BLACK, true);
    EXPECT_EQ(32, CaptureStats.tries[slot]);
    EXPECT_EQ(16, CaptureStats.successes[slot]);
    EXPECT_EQ(0, CaptureStats.tries[CaptureStatsIndex(capture, WHITE)]);

    // What an earlier search counted is forgotten.
    HashAge = 4;
    UpdateCaptureStats(capture, BLACK, false);
    EXPECT_EQ(1, CaptureStats.tries[slot]);
    EXPECT_EQ(0, CaptureStats.successes[slot]);
    EXPECT_EQ(4, CaptureStats.stamp[slot]);
}

TEST_F(OrderingTest, ANewSearchKeepsAFaintPreference) {
    for (const bool keep : {true, false}) {
        SCOPED_TRACE(keep);
        std::fill(std::begin(HistoryTable), std::end(HistoryTable), 32700);
        HistoryTable[HISTORY_ENTRIES - 1] = 255;
        AgeOrdering(keep);
        EXPECT_EQ(keep ? 127 : 0, HistoryTable[0]);
        EXPECT_EQ(keep ? 127 : 0, HistoryTable[HISTORY_ENTRIES - 2]);
        EXPECT_EQ(0, HistoryTable[HISTORY_ENTRIES - 1]);
    }
}

TEST_F(OrderingTest, ANewSearchFindsTheKillersTwoPliesDown) {
    for (int i = 0; i < PLY_STATES * 4; i++)
        PlyStates[i / 4].killers[i & 1][i / 2 & 1] = Move(i + 1);
    AgeOrdering(true);
    for (int i = 0; i < PLY_STATES * 4; i++)
        ASSERT_EQ(Move(i + (i / 4 < 192 ? 9 : 1)), PlyStates[i / 4].killers[i & 1][i / 2 & 1]) << i;
}
