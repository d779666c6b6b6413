// Analysis mode over real pipes.

#include <string>

#include <gtest/gtest.h>

#include "support/engine_process.h"

namespace {

constexpr const char* Mated = "loadfen 7k/6Q1/6K1/8/8/8/8/8 b - -\n";
// A mate that is found at once, so that the search ends by itself.
constexpr const char* MateInOne = "loadfen 6k1/5ppp/8/8/8/8/8/R6K w - -\n";

TEST(Analysis, FollowsWhatIsTypedAndPlaysNothing) {
    EngineProcess engine;
    // A depth, a time and a node limit of the game do not end it.
    engine.Ask("nopost\nsd 2\nst 1\ntime 1");
    const auto movesToSearch = [&](const std::string& lines) {
        engine.Send(lines + "\n.");
        const std::string line = engine.ReadUntilPrefix("stat01: ");
        EXPECT_EQ(line.find('\n'), line.size() - 1) << "nothing else is printed:\n" << line;
        int moves = 0;
        EXPECT_EQ(sscanf(line.c_str(), "stat01: %*d %*d %*d %*d %d", &moves), 1) << line;
        return moves;
    };
    EXPECT_EQ(movesToSearch("analyze"), 20);
    EXPECT_EQ(movesToSearch("d2d4"), 20);
    EXPECT_EQ(movesToSearch("e7e5"), 29);
    EXPECT_EQ(movesToSearch("undo"), 20);
    EXPECT_EQ(movesToSearch("undo"), 20);
    for (const char* const line : {"?", "nopost", "time 100", "hard", "easy", "result *"})
        EXPECT_EQ(movesToSearch(line), 20) << line;
    engine.Send("a1a8");
    EXPECT_EQ(engine.ReadLine(), "Illegal move: a1a8");
    EXPECT_EQ(movesToSearch("e2e4"), 20);
    EXPECT_EQ(movesToSearch("new"), 20);
    EXPECT_EQ(engine.Ask("exit"), "");
    EXPECT_EQ(engine.Ask("brd"), StartBoard);
}

TEST(Analysis, WaitsWhereThereIsNothingMoreToFind) {
    EngineProcess engine;
    engine.Settle();
    engine.Send(std::string("nopost\n") + MateInOne + "analyze");
    engine.Send("xyzzy\n.");
    // Until the search has ended the answer tells of it.
    while (engine.ReadLine() != "stat01: 0 0 0 0 0")
        engine.Send(".");
    engine.Send("a1a7\n.");
    EXPECT_EQ(engine.ReadLine(), "move maked...");
    EXPECT_TRUE(engine.ReadLine().starts_with("stat01: "));
    engine.Send("exit");
    EXPECT_NE(engine.Ask("brd").find(" R . . . .*P*P*P"), std::string::npos);
}

TEST(Analysis, ShowsItsLastLineWhenItEndsByItself) {
    EngineProcess engine;
    engine.Ask("xboard\npost");
    engine.Send(std::string(MateInOne) + "analyze");
    const std::string line = engine.ReadLine();
    EXPECT_NE(line.find(" 32766 "), std::string::npos) << line;
    EXPECT_TRUE(line.ends_with(" a1a8")) << line;
}

TEST(Analysis, AFinishedGameCanBeLeft) {
    EngineProcess engine;
    engine.Settle();
    engine.Send(std::string(Mated) + "analyze");
    EXPECT_EQ(engine.ReadLine(), "1-0 {White mates}");
    engine.Send(".\nh8h7");
    EXPECT_EQ(engine.ReadLine(), "stat01: 0 0 0 0 0");
    EXPECT_EQ(engine.ReadLine(), "Illegal move: h8h7");
    EXPECT_EQ(engine.ReadLine(), "1-0 {White mates}");
    engine.Send("exit");
    EXPECT_EQ(engine.ReadLine(), "1-0 {White mates}") << "it begins again before it ends";
    EXPECT_EQ(engine.Ask("mvd"), "castling flags = 0\n");
    engine.Send("analyze\nnew");
    EXPECT_EQ(engine.ReadLine(), "1-0 {White mates}");
    EXPECT_EQ(engine.ReadLine(), "1-0 {White mates}");
    engine.Send("nopost\nexit");
    engine.WaitUntilIdle();
    EXPECT_EQ(engine.Ask("brd"), StartBoard);
}

TEST(Analysis, EndsWithTheProcessOrTheInput) {
    for (const std::string& search : {std::string(Mated) + "analyze", std::string("go infinite")}) {
        EngineProcess engine;
        engine.Send(search + "\nquit");
        EXPECT_EQ(engine.WaitForExit(), 0);
    }
    EngineProcess engine;
    engine.Send(std::string(Mated) + "analyze");
    engine.ReadUntilPrefix("1-0");
    engine.CloseInput();
    EXPECT_TRUE(engine.FallsAsleep());
    EXPECT_TRUE(engine.Running());
}

} // namespace
