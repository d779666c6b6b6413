// Searches in positions that tablebases hold.

#include "board/fen.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "eval/eval_cache.h"
#include "search/hash_memory.h"
#include "search/root.h"
#include "search/state.h"
#include "search/transposition.h"
#include "search/tree/driver.h"
#include "search/tree/search.h"
#include "support/search_test.h"
#include "support/tablebase_test.h"
#include "tablebase/tablebases.h"

namespace {

class TablebaseSearch : public TablebaseTest {
protected:
    void SetUp() override {
        AllocateHashTables();
        ForgetSearches();
    }
    void TearDown() override {
        ForgetSearches();
        FreeHashTables();
        TablebaseTest::TearDown();
    }
};

// The root tells the score of its best move, whose mate is one ply further than the probe counts.
int32_t RootScoreOf(int32_t probed) {
    return probed > 0 ? probed + 1 : probed;
}

TEST_F(TablebaseSearch, PlaysMatesWithoutADetour) {
    ASSERT_EQ(Register(ThreeMenTables), 3);
    for (const char* const fen :
         {"8/8/8/3k4/8/8/8/K5Q1 w - - 0 1", "8/8/8/3K4/8/8/8/k5q1 w - - 0 1",
          "8/8/3k4/8/8/8/8/KR6 w - - 0 1", "8/8/8/8/4K3/8/7r/k7 w - - 0 1",
          "7k/8/8/8/8/8/P7/K7 w - - 0 1", "k7/8/1K6/1P6/8/8/8/8 w - - 0 1"}) {
        SCOPED_TRACE(fen);
        int32_t distance = ProbedScore(fen);
        ASSERT_NE(distance, 0);
        while (distance != -MATE) {
            const Move move = SearchFixedDepth(3);
            // An only move is played without a search.
            if (Root.count > 1) {
                ASSERT_EQ(Root.moves[0].score, RootScoreOf(distance));
                ASSERT_GT(Running.TablebaseHits, 0);
            }
            MakeMove(move, true);
            const int32_t next = ProbedScore(WriteFen().c_str());
            // A won position is one move nearer to mate, a lost one as far as it can be.
            ASSERT_EQ(next, distance > 0 ? -distance - 2 : -distance);
            distance = next;
        }
    }
}

// What the search has found without tables, or with wrong bounds, does not stand in the way.
TEST_F(TablebaseSearch, TrustsTablesMoreThanTheHash) {
    const char* const fen = "8/8/3k4/8/8/8/8/KR6 w - - 0 1";
    LoadFen(fen);
    SearchFixedDepth(9);
    EXPECT_EQ(Running.TablebaseHits, 0);
    ASSERT_EQ(Register(ThreeMenTables), 3);
    const int32_t probed = ProbedScore(fen);
    SearchFixedDepth(3);
    EXPECT_EQ(Root.moves[0].score, RootScoreOf(probed));
}

// A table holds the position: the score counts from the root, a draw is worth what draws are.
TEST_F(TablebaseSearch, CountsScoresFromTheRoot) {
    ASSERT_EQ(Register(ThreeMenTables), 3);
    const char* const won = "8/8/8/3k4/8/8/8/K5Q1 w - - 0 1";
    const int32_t probed = ProbedScore(won);
    for (const int ply : {1, 4}) {
        ClearAllHashTables();
        Running.SearchPly = ply;
        EXPECT_EQ(Search(-MATE, MATE, 4 * ONE_PLY, true), probed + 1 - ply);
        EXPECT_EQ(Search(-MATE, MATE, 4 * ONE_PLY, true), probed + 1 - ply); // from the hash
    }
    LoadFen("8/8/8/8/8/1k6/1p6/1K6 w - - 0 1");
    SetRootSide(WHITE);
    Budget.DrawScore = 30;
    Running.SearchPly = 2;
    EXPECT_EQ(Search(-MATE, MATE, 4 * ONE_PLY, true), 30);
}

TEST_F(TablebaseSearch, AsksNoTableWhileACastlingRightRemains) {
    ASSERT_EQ(Register(ThreeMenTables), 3);
    for (const auto& [fen, asked] : {std::pair{"8/8/8/3k4/8/8/8/4K2R w K - 0 1", false},
                                     std::pair{"8/8/8/3k4/8/8/8/4K2R w - - 0 1", true}}) {
        LoadFen(fen);
        Running.SearchPly = 1;
        Search(-MATE, MATE, ONE_PLY, true);
        EXPECT_EQ(HashProbe().depth == TABLEBASE_DEPTH, asked) << fen;
    }
}

} // namespace
