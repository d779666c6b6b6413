#include "search/time_allotment.h"

#include "board/position.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "support/search_test.h"

namespace {

class TimeAllotment : public SearchingTest {
protected:
    void SetUp() override {
        SearchingTest::SetUp();
        Past.SearchesSinceBook = 5;
    }
};

struct ClockCase {
    const char* name;
    int time;
    int increment;
    int moves; // a period
    bool toGo;
    int gamePly;
    int sinceBook;
    int allotted;
    int hardLimit;
};

constexpr ClockCase ClockCases[] = {
    {"five minutes", 30000, 0, 0, false, 0, 5, 711, 6643},
    {"five minutes, first search after the book", 30000, 0, 0, false, 0, 1, 853, 6643},
    {"forty moves, at the last of them", 30000, 0, 40, false, 78, 5, 21374, 14249},
    {"forty moves, at the first of the next forty", 30000, 0, 40, false, 80, 5, 711, 6643},
    {"five moves to go, whatever was played before", 6000, 0, 5, true, 60, 5, 854, 2849},
    {"nothing left", 1, 0, 0, false, 60, 5, 3, 0},
};

TEST_F(TimeAllotment, DividesTheClockByTheMovesAhead) {
    for (const ClockCase& c : ClockCases) {
        SCOPED_TRACE(c.name);
        Clock.OwnTime = c.time;
        Clock.OwnIncrement = c.increment;
        Clock.MovesPerPeriod = c.moves;
        Clock.MovesToGo = c.toGo;
        Ply = c.gamePly;
        Past.SearchesSinceBook = c.sinceBook;
        AllotTime();
        EXPECT_EQ(Budget.TimeAllotted, c.allotted);
        EXPECT_EQ(Budget.TimeHardLimit, c.hardLimit);
        EXPECT_TRUE(Budget.UnderClock);
    }
}

TEST_F(TimeAllotment, IsByAnalysisAFixedTimeOrTheClockLessTheOverheadOfAMove) {
    struct Case {
        int overhead; // milliseconds
        int time;
        int32_t fixedTime;
        bool analysing;
        int hardLimit;
        int pollReload;
    };
    for (const Case& c :
         {Case{30, 103, 0, false, 28, 5000}, Case{21, 103, 0, false, 28, 5000},
          Case{30, 5, 0, false, -1, 5000}, Case{30, 7, 0, false, 1, 5000},
          Case{0, 2, 0, false, 0, 5000}, Case{0, 103, 50, false, 50, 5000},
          Case{30, 103, 50, false, 47, 5000}, Case{500, 103, 50, false, 25, 5000},
          Case{5000, 103, 1, false, 1, 5000}, Case{30, 30000, 250, false, 247, 20000},
          Case{30, NO_CLOCK, 250, false, 247, 20000},
          Case{30, 30000, 250, true, UNLIMITED_TIME, 50000},
          Case{30, NO_CLOCK, 0, false, UNLIMITED_TIME, 50000},
          Case{30, INFINITE_TIME, 0, false, UNLIMITED_TIME, 50000}}) {
        SCOPED_TRACE(testing::Message() << c.time << " " << c.fixedTime << " " << c.analysing);
        SearchOptions.MoveOverhead = c.overhead;
        Clock.OwnTime = c.time;
        Clock.OwnIncrement = 1;
        Limits.FixedTime = c.fixedTime;
        Limits.Analysing = c.analysing;
        AllotTime();
        EXPECT_EQ(Budget.TimeHardLimit, c.hardLimit);
        EXPECT_EQ(Budget.PollReload, c.pollReload);
        EXPECT_EQ(Budget.UnderClock, c.hardLimit != UNLIMITED_TIME);
        if (c.fixedTime > 0 || c.analysing) {
            EXPECT_EQ(Budget.TimeAllotted, c.hardLimit);
        }
    }
}

TEST_F(TimeAllotment, APersonWithoutAClockGetsAnAnswerByTheBaseTime) {
    Clock.PlayByBaseTime = true;
    AllotTime();
    EXPECT_TRUE(Budget.UnderClock);
    EXPECT_LT(Budget.TimeHardLimit, Clock.BaseTime);
}

TEST_F(TimeAllotment, APonderedMoveIsGivenTheTimeOfTheClockThatCameMeanwhile) {
    Clock.OwnTime = 100; // before the control
    Clock.OpponentTime = 1000;
    Clock.MovesPerPeriod = 40;
    Ply = 80;
    Root.gamePly = 80;
    AllotTime();
    const int drawScore = Budget.DrawScore;
    ASSERT_GT(drawScore, 0);
    const int meagre = Budget.TimeAllotted;
    Clock.OwnTime = 30100;
    Ply = 95; // the board stands somewhere in the tree
    ReallotTime();
    EXPECT_GT(Budget.TimeAllotted, 100 * meagre);
    EXPECT_EQ(Budget.DrawScore, drawScore) << "scores already in the table count on it";
    const int allotted = Budget.TimeAllotted;
    Ply = 80;
    AllotTime();
    EXPECT_EQ(Budget.TimeAllotted, allotted);
}

struct DrawCase {
    const char* name;
    int own;
    int opponent;
    int increment;
    int movesToGo;
    int drawScore;
};

constexpr DrawCase DrawCases[] = {
    {"almost no time against much", 20, 1000, 0, 0, 50},
    {"three seconds against much", 300, 10000, 0, 0, 13},
    {"the opponent has less", 300, 200, 0, 0, 0},
    {"the opponent's clock is unknown", 20, NO_CLOCK, 0, 0, 0},
    {"the control is near", 20, 1000, 0, 3, 0},
    {"plenty of time", 30000, 60000, 0, 0, 0},
    {"an increment saves a clock of five seconds", 500, 10000, 100, 0, 0},
};

TEST_F(TimeAllotment, ADrawIsWorthMoreTheShorterTheClock) {
    for (const DrawCase& c : DrawCases) {
        SCOPED_TRACE(c.name);
        Clock.OwnTime = c.own;
        Clock.OpponentTime = c.opponent;
        Clock.OwnIncrement = c.increment;
        Clock.MovesPerPeriod = c.movesToGo;
        Clock.MovesToGo = c.movesToGo > 0;
        AllotTime();
        EXPECT_EQ(Budget.DrawScore, c.drawScore);
    }
}

} // namespace
