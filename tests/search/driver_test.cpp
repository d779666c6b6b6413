#include "search/tree/driver.h"

#include "board/fen.h"
#include "board/notation.h"
#include "book/book.h"
#include "book/book_learning.h"
#include "book/book_settings.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "support/board_test.h"
#include "support/book_file.h"
#include "support/scratch.h"
#include "support/search_test.h"

namespace {

class DriverTest : public SearchingTest {};

TEST_F(DriverTest, LooksForAnEasyRecaptureAfterTheThirdIteration) {
    LoadFen("3rk3/8/8/8/8/8/8/3RK3 b - - 0 1");
    Play("d8d1");
    SearchFixedDepth(4);
    EXPECT_EQ(Running.EasyMove, NO_MOVE);
    SearchFixedDepth(5);
    EXPECT_EQ(MoveText(Running.EasyMove), "e1d1");
    LoadFen("4k3/8/8/q6p/1P4P1/8/8/4K3 b - -");
    Play("h5g4");
    EXPECT_EQ(MoveText(SearchFixedDepth(5)), "b4a5");
    EXPECT_EQ(Running.EasyMove, NO_MOVE) << "it takes, but does not take back";
}

TEST_F(DriverTest, DoubtsABestMoveThatTheIterationBeforeDidNotHave) {
    Move previous = NO_MOVE;
    int doubts = 0;
    for (int depth = 2; depth <= 9; depth++) {
        ForgetSearches();
        LoadFen("r1bq1rk1/pp3ppp/2n1pn2/2pp4/3P4/2PBPN2/PP1N1PPP/R1BQ1RK1 w - -");
        const Move best = SearchFixedDepth(depth);
        if (previous != NO_MOVE) {
            EXPECT_EQ(Running.RootUnsettled, best != previous) << depth;
            doubts += best != previous;
        }
        previous = best;
    }
    EXPECT_GT(doubts, 0);
    EXPECT_LT(doubts, 7);
}

TEST_F(DriverTest, SearchesAsManyNodesAsItIsTold) {
    Limits.NodeLimit = 7; // the user's, who asks for something else
    for (const int32_t nodes : {1000, 2000, 20000}) {
        SetStartPosition();
        EXPECT_NE(SearchFixedNodes(nodes), NO_MOVE);
        EXPECT_GE(Running.NodeCount, nodes);
        EXPECT_LT(Running.NodeCount, nodes + 200);
    }
    // Captures and checks go on and on here, and the main search is not come back to.
    LoadFen("4k3/qqqqqqq1/8/8/8/8/1QQQQQQQ/4K3 w - - 0 1");
    SearchFixedNodes(2000);
    EXPECT_LT(Running.NodeCount, 4200);
    EXPECT_EQ(Limits.NodeLimit, 7);
    LoadFen("7k/5Q2/6K1/8/8/8/8/8 b - - 0 1");
    EXPECT_EQ(SearchFixedNodes(1000), NO_MOVE);
}

TEST_F(DriverTest, BeginsTheRootListAnew) {
    Root.count = Root.index = Root.gamePly = 7;
    ASSERT_TRUE(PrepareRoot());
    EXPECT_EQ(Root.count, 20);
    EXPECT_EQ(Root.index, 0);
    EXPECT_EQ(Root.gamePly, 0);
}

TEST_F(DriverTest, TeachesTheBookOnlyByWhatItHasSearched) {
    ScratchDirectory directory;
    WriteFileText("test.tqn", BookBytes(1, {{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -",
                                             {{"e2e4", Points(5, 3)}}}}));
    Book = {};
    Printed([] { OpenBook("test.tqn"); });
    BookLearned = false;
    Book.BookLearningBound = -1; // every score teaches
    Limits.DepthLimit = 2;
    for (const bool fromBook : {true, false}) {
        SetStartPosition();
        Book.OwnBook = fromBook;
        ASSERT_TRUE(Think());
        EXPECT_EQ(Past.BestMoveFromBook, fromBook);
        EXPECT_EQ(BookLearned, !fromBook);
    }
    OpenBook("");
    Book = {};
    BookLearned = false;
}

} // namespace
