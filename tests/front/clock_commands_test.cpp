// What the commands of the clock leave for the search.

#include "front/game/game.h"
#include "front/game/manners.h"
#include "front/interpreter.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "support/board_test.h"
#include "support/engine_setup.h"

namespace {

class ClockCommands : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        ForgetLimits();
        Game.ForceMode = false;
        Past = {};
    }
    void TearDown() override {
        SetUp();
    }
};

TEST_F(ClockCommands, LevelSetsMovesBaseTimeAndBothIncrements) {
    struct Case {
        const char* line;
        int32_t moves;
        int32_t base;
        int32_t increment;
    };
    constexpr Case cases[] = {
        {"level 0 2:30 5", 0, 15000, 500},
        {"level 20 0:05 1", 20, 500, 100},
        {"level 60 1 2 ", 60, 6000, 200},
        {"LEVEL 30", 30, DEFAULT_BASE_TIME, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        ForgetLimits();
        Clock.MovesToGo = true;
        Clock.OwnTime = 77;
        Dispatch(c.line);
        EXPECT_EQ(Clock.MovesPerPeriod, c.moves);
        EXPECT_EQ(Clock.BaseTime, c.base);
        EXPECT_EQ(Clock.OwnIncrement, c.increment);
        EXPECT_EQ(Clock.OpponentIncrement, c.increment);
        EXPECT_FALSE(Clock.MovesToGo);
        EXPECT_EQ(Clock.OwnTime, 77) << "the clock itself is set by `time`";
    }
}

TEST_F(ClockCommands, ModernLevelsAreReadByWords) {
    struct Case {
        const char* line;
        int32_t moves;
        int32_t base;
        int32_t increment;
    };
    UseManners(Modern);
    for (const Case& c : {Case{"level 0 0:10 0.5", 0, 1000, 50}, Case{"level 40 0:10", 40, 1000, 0},
                          Case{"level 40 5 0", 40, 30000, 0}, Case{"level 0 1 2.05", 0, 6000, 205},
                          Case{"level 0 2:30 .1", 0, 15000, 10}}) {
        SCOPED_TRACE(c.line);
        Clock.OwnIncrement = 1000;
        Dispatch(c.line);
        EXPECT_EQ(Clock.MovesPerPeriod, c.moves);
        EXPECT_EQ(Clock.BaseTime, c.base);
        EXPECT_EQ(Clock.OwnIncrement, c.increment);
        EXPECT_EQ(Clock.OpponentIncrement, c.increment);
    }
    UseManners(Classic);
}

TEST_F(ClockCommands, TimesAreHundredthsAndNeverReadAsNoClock) {
    Dispatch("time 12345");
    Dispatch("otime 678");
    EXPECT_EQ(Clock.OwnTime, 12345);
    EXPECT_EQ(Clock.OpponentTime, 678);
    Dispatch("time -1");
    Dispatch("otime 0");
    EXPECT_EQ(Clock.OwnTime, 1);
    EXPECT_EQ(Clock.OpponentTime, 1);
    Dispatch("time 99999999999");
    EXPECT_LT(Clock.OwnTime, INFINITE_TIME);
    Dispatch("time");
    Dispatch("otim 500");
    EXPECT_LT(Clock.OwnTime, INFINITE_TIME) << "without a number the clock stays";
    EXPECT_EQ(Clock.OpponentTime, 1) << "the idle engine does not know `otim`";
}

TEST_F(ClockCommands, GoGivesTheClocksToTheSideToMoveAndItsOpponent) {
    Dispatch("go wtime 60000 btime 30000 winc 1000 binc 2000 depth 1");
    EXPECT_EQ(Ply, 1) << "the engine has moved";
    EXPECT_EQ(Clock.OwnTime, 6000);
    EXPECT_EQ(Clock.BaseTime, 6000);
    EXPECT_EQ(Clock.OpponentTime, 3000);
    EXPECT_EQ(Clock.OwnIncrement, 100);
    EXPECT_EQ(Clock.OpponentIncrement, 200);
    Dispatch("go wtime 60000 btime 30000 movestogo 9 depth 1");
    EXPECT_EQ(Clock.OwnTime, 3000);
    EXPECT_EQ(Clock.OpponentTime, 6000);
    EXPECT_EQ(Clock.OwnIncrement, 0) << "parameters set the others back";
    EXPECT_EQ(Clock.MovesPerPeriod, 9);
    EXPECT_TRUE(Clock.MovesToGo);
    Dispatch("go movetime 5 depth 1");
    EXPECT_EQ(Limits.FixedTime, 1) << "a time that was given is not `none`";
    EXPECT_EQ(Clock.OwnTime, NO_CLOCK);
    EXPECT_EQ(Clock.OpponentTime, NO_CLOCK);
    EXPECT_FALSE(Clock.PlayByBaseTime);
    EXPECT_FALSE(Clock.MovesToGo);
}

TEST_F(ClockCommands, ANewGameSetsDepthTimeAndForceBackAndLeavesTheClock) {
    for (const char* const line : {"sd 3", "st 2", "sd", "st", "stop", "time 500", "force", "e2e4"})
        Dispatch(line);
    EXPECT_EQ(Limits.DepthLimit, 3) << "without a number it stays";
    EXPECT_EQ(Limits.FixedTime, 200);
    Dispatch("new");
    EXPECT_EQ(Limits.DepthLimit, UNLIMITED_DEPTH);
    EXPECT_EQ(Limits.FixedTime, 0);
    EXPECT_FALSE(Game.ForceMode);
    EXPECT_EQ(Clock.OwnTime, 500);
    EXPECT_EQ(Ply, 0);
    EXPECT_EQ(Game.EngineSide, BLACK);
}

} // namespace
