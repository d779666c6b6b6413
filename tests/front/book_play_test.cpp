// The opening book and what the engine learns from its games, over real pipes.

#include <gtest/gtest.h>

#include "book/book_format.h"
#include "support/book_file.h"
#include "support/engine_process.h"
#include "support/scratch.h"

namespace {

constexpr const char* Start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -";
constexpr const char* AfterD5 = "rnbqkbnr/ppp1pppp/8/3p4/4P3/8/PPPP1PPP/RNBQKBNR w KQkq -";
constexpr const char* AfterE4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq -";

class BookPlay : public testing::Test {
protected:
    void Use(EngineProcess& engine, const std::vector<BookTestNode>& nodes) {
        file = engine.Directory() + "/Book.tqn";
        WriteFileText(file, BookBytes(1, nodes));
        engine.Settle();
        EXPECT_EQ(engine.Ask("setoption name OpeningsBook value .\\BOOK.TQN"),
                  std::to_string(nodes.size()) + " nodes in openings book\n");
    }
    int Statistics(const char* squares) const {
        return StatisticsInBook(FileText(file), squares);
    }

    std::string file;
};

TEST_F(BookPlay, BookMovesComeWithoutThinkingOnTheConsole) {
    EngineProcess engine("Pondering = off\nVarietyOfPlay = 0");
    engine.Settle();
    EXPECT_EQ(engine.Ask("bkm"), "Current nhash1 = 62112, nhash2 = 42397\nNo book loaded...\n");
    Use(engine, {{Start, {{"a2a3", 0}, {"b2b3", BOOK_KILLED}}}});
    engine.Send("bkm"); // and nothing more before the answer has come
    EXPECT_EQ(engine.ReadThrough(" -\n"), "Current nhash1 = 62112, nhash2 = 42397\n"
                                          "2 moves from current pos in book:\na2a3 ?\nb2b3 -\n");
    EXPECT_EQ(engine.Ask("post\ngo"), "move a2a3\n");
    engine.Send("st 1\ne7e5");
    EXPECT_NE(engine.ReadUntilPrefix("move ").find('\n'), std::string::npos) << "it has thought";
}

TEST_F(BookPlay, UciAsksTheBookWhenItMay) {
    EngineProcess engine;
    Use(engine, {{Start, {{"a2a3", 0}}}, {AfterE4, {{"h7h6", 0}}}});
    engine.Ask("uci");
    const auto bestMove = [&](const std::string& lines) {
        engine.Send(lines);
        const std::string text = engine.ReadUntilPrefix("bestmove ");
        return text.substr(text.find("bestmove "), 13);
    };
    EXPECT_EQ(bestMove("position startpos\ngo movetime 20"), "bestmove a2a3");
    EXPECT_EQ(bestMove("position startpos moves e2e4\ngo depth 4"), "bestmove h7h6");
    EXPECT_NE(bestMove("position startpos\ngo depth 4 searchmoves g1f3 d2d4"), "bestmove a2a3");
    EXPECT_NE(bestMove("position startpos\ngo infinite\nstop"), "bestmove a2a3");
    EXPECT_NE(bestMove("setoption name OwnBook value false\nposition startpos\ngo depth 4"),
              "bestmove a2a3");
    engine.Ask(
        "setoption name OwnBook value true\nposition startpos moves e2e4\ngo ponder wtime 9");
    EXPECT_TRUE(engine.FallsAsleep()) << "the move waits for the prediction to come true";
    EXPECT_EQ(bestMove("ponderhit"), "bestmove h7h6");
}

// The engine plays White in each game, one after the other in one process, and loses its queen
// where the book wants it to.
TEST_F(BookPlay, ALineThatIsLostAgainAndAgainIsLeft) {
    EngineProcess engine("Pondering = off\nVarietyOfPlay = 0");
    Use(engine,
        {{Start, {{"e2e4", 0}}}, {AfterD5, {{"d1g4", Points(15, 10)}, {"e4d5", Points(10, 10)}}}});
    engine.Ask("nopost\nsd 4");
    int games = 0;
    for (; games < 10; games++) {
        engine.Ask("reset\nnew\nsd 4\ngo");
        engine.Send("d7d5");
        if (engine.ReadUntilPrefix("move ").find("d1g4") == std::string::npos)
            break;
        engine.Send("c8g4");
        engine.ReadUntilPrefix("move ");
        engine.Settle();
        EXPECT_EQ(Statistics("d1g4"), Points(15, 10 + 2 * (games + 1))) << "once for each game";
    }
    EXPECT_EQ(games, 3) << "15 of 29 is better than even, 15 of 31 is not";
    EXPECT_EQ(Statistics("e2e4"), Points(0, 2 * games));
}

TEST_F(BookPlay, ResetCountsAnUndecidedGameAsADraw) {
    EngineProcess engine("Pondering = off");
    Use(engine, {{Start, {{"e2e4", 0}}}});
    engine.Ask("nopost\nsd 3\ngo");
    engine.Send("e7e5");
    engine.ReadUntilPrefix("move ");
    engine.Ask("reset");
    EXPECT_EQ(Statistics("e2e4"), Points(1, 1));
    engine.Ask("reset\nreset");
    EXPECT_EQ(Statistics("e2e4"), Points(1, 1)) << "it is the engine's turn";
}

} // namespace
