// What the search makes of positions that were learned in earlier games.

#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "book/book_settings.h"
#include "book/learning_file.h"
#include "search/root.h"
#include "search/tree/driver.h"
#include "support/scratch.h"
#include "support/search_test.h"

namespace {

class LearnedPositions : public SearchingTest {};

constexpr int DEPTH = 11;

// The move chosen by a search that knows nothing from earlier ones.
Move SearchAnew() {
    ForgetSearches();
    return SearchFixedDepth(DEPTH);
}

TEST_F(LearnedPositions, TheEngineAvoidsWhereItHasGoneWrong) {
    ScratchDirectory directory;
    OpenLearningFile("Learn.tq1");
    const Move best = SearchAnew();
    // The opponent's best reply to it is now known to be very strong.
    MakeMove(best, true);
    MakeMove(SearchFixedDepth(DEPTH), true);
    AddLearned(LearningKeysOf(PosKey), {99 * 60 + 30, -700, NO_MOVE});
    UnmakeMove();
    UnmakeMove();
    EXPECT_EQ(SearchAnew(), best) << "switched off";
    Book.UseLearningData = true;
    EXPECT_NE(SearchAnew(), best);
    EXPECT_GT(Root.moves[0].score, -300);
    Book = {};
    CloseLearningFile();
}

} // namespace
