#include "search/tree/pruning.h"

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/moves/order_tables.h"
#include "board/notation.h"
#include "support/search_test.h"

namespace {

class Pruning : public SearchingTest {
protected:
    // A node three plies before the horizon with a move searched, level with alpha.
    static Node MakeNode() {
        Node node(0, 1, 3 * ONE_PLY, true);
        node.searched = 1;
        node.best = 0;
        return node;
    }

    void SetUp() override {
        SearchingTest::SetUp();
        LoadFen("3rk3/2p2ppp/4p3/3p4/3P4/2N1P3/5PPP/1R1QK3 w - - 0 1");
    }
};

bool LeavesOut(const Node& node, const char* move, Stage stage = QUIET_STAGE, int32_t order = 0) {
    return IsHopeless(node, MoveFromText(move), stage, order);
}

TEST_F(Pruning, LeavesOutQuietMovesByNumberMarginAndExchange) {
    Node node = MakeNode();
    EXPECT_FALSE(LeavesOut(node, "d1c2"));
    // A knight before a pawn is lost, until the search is too deep to tell.
    EXPECT_TRUE(LeavesOut(node, "c3e4"));
    node.depth = 8 * ONE_PLY;
    EXPECT_FALSE(LeavesOut(node, "c3e4"));

    node.depth = 3 * ONE_PLY;
    node.quiets = 11;
    EXPECT_FALSE(LeavesOut(node, "d1c2"));
    node.quiets = 12;
    EXPECT_TRUE(LeavesOut(node, "d1c2"));
    node.depth = 4 * ONE_PLY;
    EXPECT_FALSE(LeavesOut(node, "d1c2"));

    node.depth = 3 * ONE_PLY;
    node.quiets = 0;
    node.staticEval = -149;
    EXPECT_FALSE(LeavesOut(node, "d1c2"));
    node.staticEval = -150;
    EXPECT_TRUE(LeavesOut(node, "d1c2"));
    EXPECT_FALSE(LeavesOut(node, "d1c2", KILLER_STAGE));
}

TEST_F(Pruning, LeavesOutCapturesThatLoseMaterial) {
    Node node = MakeNode();
    EXPECT_TRUE(LeavesOut(node, "c3d5", CAPTURE_STAGE, SAFE_CAPTURE - 1));
    EXPECT_FALSE(LeavesOut(node, "c3d5", CAPTURE_STAGE, SAFE_CAPTURE));
    node.depth = 6 * ONE_PLY;
    EXPECT_FALSE(LeavesOut(node, "c3d5", CAPTURE_STAGE, SAFE_CAPTURE - 1));
}

TEST_F(Pruning, KeepsEveryMoveWhereOneCouldDecide) {
    constexpr void (*changes[])(Node&) = {
        [](Node& node) { node.searched = 0; },       [](Node& node) { node.openWindow = true; },
        [](Node& node) { node.mateThreat = true; },  [](Node& node) { node.best = -MATE_BOUND; },
        [](Node& node) { node.alpha = MATE_BOUND; }, [](Node& node) { node.alpha = -MATE_BOUND; },
    };
    for (const auto change : changes) {
        Node node = MakeNode();
        node.quiets = 40;
        node.staticEval = node.alpha - 300;
        EXPECT_TRUE(LeavesOut(node, "c3e4"));
        change(node);
        EXPECT_FALSE(LeavesOut(node, "c3e4"));
        EXPECT_FALSE(LeavesOut(node, "c3d5", CAPTURE_STAGE, 0));
        EXPECT_FALSE(LeavesOut(node, "c3e4", EVASION_STAGE));
        EXPECT_FALSE(LeavesOut(node, "c3e4", HASH_STAGE));
    }
}

} // namespace
