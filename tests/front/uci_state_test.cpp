// What the commands of the UCI dialect leave behind.

#include "front/dialects/console.h"
#include "front/dialects/uci.h"
#include "front/game/game.h"
#include "front/interpreter.h"
#include "search/driver_state.h"
#include "search/root.h"
#include "search/state.h"
#include "support/board_test.h"
#include "support/scratch.h"
#include "tablebase/tablebases.h"

namespace {

class UciState : public BoardTest {
protected:
    void TearDown() override {
        Tablebases = {};
        Past = {};
        Speaking = &ConsoleDialect;
        BoardTest::TearDown();
    }
};

TEST_F(UciState, TablebaseOptionsCountOnlyWhileTablebasesAreUsed) {
    Dispatch("setoption name NalimovCache value 4");
    Dispatch("setoption name NalimovPath value d:\\my tables; e:\\x ");
    EXPECT_EQ(Tablebases.EgtbCacheBytes, 4194304);
    EXPECT_EQ(std::string(Tablebases.EgtbPath), "d:\\my tables; e:\\x ");
    Tablebases.UseEgtb = false;
    Dispatch("setoption name NalimovCache value 9");
    Dispatch("setoption name NalimovPath value f:\\");
    EXPECT_EQ(Tablebases.EgtbCacheBytes, 4194304);
    EXPECT_EQ(std::string(Tablebases.EgtbPath), "d:\\my tables; e:\\x ");
}

TEST_F(UciState, AnotherPositionForgetsTheLastScoreUnlessTheGamesComePositionByPosition) {
    for (const bool uci : {true, false}) {
        for (const char* const line : {"position fen 4k3/8/8/8/8/8/4P3/4K3 w - - 0 1",
                                       "loadfen 4k3/8/8/8/8/8/4P3/4K3 w - - 0 1"}) {
            Speaking = uci ? &UciDialect : &ConsoleDialect;
            Past.LastScore = 123;
            Past.LastScoreSide = BLACK;
            Dispatch(line);
            EXPECT_EQ(Past.LastScore, uci ? 123 : 0) << line;
            EXPECT_EQ(Past.LastScoreSide, uci ? BLACK : WHITE) << line;
            EXPECT_EQ(MenCount, 3) << line;
        }
    }
    Past.LastScore = 123;
    Dispatch("new");
    EXPECT_EQ(Past.LastScore, 0);
}

TEST_F(UciState, EveryLineOfThinkingPutsTheStatisticsOff) {
    ASSERT_TRUE(PrepareRoot());
    Running.InfoCountdown = -1;
    const std::string line = Printed([] { PrintUciVariation(true, BOUND_LOWER); });
    EXPECT_EQ(Running.InfoCountdown, StatisticsInterval());
    EXPECT_NE(line.find(" lowerbound nodes "), std::string::npos) << line;
}

} // namespace
