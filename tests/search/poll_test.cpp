#include "search/poll.h"

#include "eval/eval_cache.h"
#include "platform/clock.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "support/search_test.h"

namespace {

// So long that no test can be slow enough to matter, in centiseconds.
constexpr int32_t ALLOTTED = 120000;
constexpr int32_t SLACK = 6000;

class PollTest : public SearchingTest {
protected:
    // Whether the search of White's move goes on when it has lasted that long.
    static bool GoesOnAfter(int32_t centiseconds) {
        Running.StopSearch = false;
        Budget.SearchStart = ClockCentiseconds() - centiseconds;
        Poll();
        return !Running.StopSearch;
    }
    // It stops after that many sixths of the allotment, and not much earlier.
    static void ExpectSixths(int32_t sixths) {
        EXPECT_TRUE(GoesOnAfter(ALLOTTED / 6 * sixths - SLACK));
        EXPECT_FALSE(GoesOnAfter(ALLOTTED / 6 * sixths));
    }
    void SetUp() override {
        SearchingTest::SetUp();
        SetRootSide(WHITE);
        Budget.UnderClock = true;
        Budget.TimeAllotted = ALLOTTED;
        Budget.TimeHardLimit = 10 * ALLOTTED;
        Past.SearchesSinceBook = 1;
        SetOnlyRootMove(WHITE_CASTLES_SHORT);
    }
};

TEST_F(PollTest, ATurnOfTheScoreIsGivenTime) {
    struct Case {
        const char* name;
        int32_t previous;
        int32_t score;
        int32_t sixths;
    };
    for (const Case& c : {
             Case{"as before", 300, 300, 6},
             Case{"small rise", 0, 25, 6},
             Case{"rise", 0, 26, 12},
             Case{"rise of a score just level", -9, 17, 12},
             Case{"rise of a bad score", -10, 16, 6},
             Case{"rise of a score just open", 119, 145, 12},
             Case{"rise of a good score", 120, 146, 6},
             Case{"small fall", 50, 30, 6},
             Case{"fall", 50, 29, 15},
             Case{"large fall", 50, -10, 15},
             Case{"danger", 50, -11, 42},
         }) {
        for (const Colour side : {WHITE, BLACK}) { // whose score was remembered
            SCOPED_TRACE(testing::Message() << c.name << " " << side);
            Past.LastScore = side == WHITE ? c.previous : -c.previous;
            Past.LastScoreSide = side;
            Root.moves[0].score = c.score;
            ExpectSixths(c.sixths);
        }
    }
    Past.SearchesSinceBook = 0;
    Root.moves[0].score = Past.LastScore - 200;
    Past.LastScoreSide = WHITE;
    ExpectSixths(24);
}

TEST_F(PollTest, AnEasyMoveTakesAThirdAndOneInDoubtMore) {
    Running.EasyMove = RootMove(0);
    ExpectSixths(2);
    Running.EasyMove = BLACK_CASTLES_SHORT;
    ExpectSixths(6);
    EXPECT_EQ(Running.EasyMove, NO_MOVE);
    Running.RootUnsettled = true;
    EXPECT_TRUE(GoesOnAfter(ALLOTTED / 6 * 10 - SLACK));
    EXPECT_FALSE(GoesOnAfter(ALLOTTED / 6 * 10 + SLACK));
    Budget.TimeHardLimit = ALLOTTED / 2;
    Running.RootUnsettled = false;
    ExpectSixths(3);
}

TEST_F(PollTest, OnlyATimedSearchOfTheGameEndsByTheClock) {
    EXPECT_FALSE(GoesOnAfter(2 * ALLOTTED));
    for (bool* const reason : {&Limits.GoPonder, &Limits.Analysing}) {
        *reason = true;
        EXPECT_TRUE(GoesOnAfter(2 * ALLOTTED));
        *reason = false;
    }
    Budget.UnderClock = false;
    EXPECT_TRUE(GoesOnAfter(2 * ALLOTTED));
    Limits.NodeLimit = 7;
    Running.NodeCount = 6;
    EXPECT_TRUE(GoesOnAfter(0));
    Running.NodeCount = 7;
    EXPECT_FALSE(GoesOnAfter(0));
}

} // namespace
