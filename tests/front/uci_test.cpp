// The UCI dialect as an interface meets it: the real engine on real pipes.

#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "support/engine_process.h"

namespace {

class Uci : public testing::Test {
protected:
    void SetUp() override {
        engine.Send("uci");
        block = engine.ReadUntil("uciok");
    }

    // The last line of a search that ends by itself: "bestmove ...".
    std::string BestMove(const std::string& position, const std::string& go) {
        engine.Send("position " + position + "\n" + go);
        thinking = engine.ReadUntilPrefix("bestmove ");
        const size_t begin = thinking.rfind("bestmove ");
        return thinking.substr(begin, thinking.size() - begin - 1);
    }

    EngineProcess engine;
    std::string block;
    std::string thinking;
};

TEST_F(Uci, NamesItselfAndItsOptions) {
    EXPECT_TRUE(block.ends_with("id name Tarquelin 1.40\n"
                                "id author Ivor T. Penhallow\n"
                                "option name Hash type spin min 0 max 1024 default 10\n"
                                "option name PawnHash type spin min 0 max 1024 default 7\n"
                                "option name NalimovPath type string default c:\\tablebases\\\n"
                                "option name OpeningsBook type string default .\\book.tqn\n"
                                "option name OwnBook type check default true\n"
                                "option name NalimovCache type spin min 1 max 128 default 1\n"
                                "option name MultiPV type spin min 1 max 1024 default 1\n"
                                "option name Aggressivity type spin min 0 max 300 default 100\n"
                                "option name Defensivity type spin min 0 max 300 default 100\n"
                                "option name Tropism type spin min 0 max 300 default 100\n"
                                "option name Clear Hash type button\n"))
        << block;
}

TEST_F(Uci, ShowsOptionsThatWereSetWithoutBounds) {
    engine.Send("setoption name Aggressivity value 500\nsetoption name defens value -3\n"
                "setoption name Tropism\nsetoption Tropism value 7\nsetoption name Other value 1\n"
                "ucinewgame");
    const std::string text = engine.ReadUntil("uciok");
    EXPECT_NE(text.find("Aggressivity type spin min 0 max 300 default 500\n"), text.npos);
    EXPECT_NE(text.find("Defensivity type spin min 0 max 300 default -3\n"), text.npos);
    EXPECT_NE(text.find("Tropism type spin min 0 max 300 default 100\n"), text.npos);
}

TEST_F(Uci, PlaysTheLegalMovesOfAPositionAndSkipsTheRest) {
    engine.Send("position startpos moves e2e4 e7e5 zzzz e1e3 g1f3");
    EXPECT_TRUE(engine.Ask("brd").ends_with(" . . . .*P . . .\n . . . . P . . .\n . . . . . N . .\n"
                                            " P P P P . P P P\n R N B Q K B . R\n"));
    engine.Send("position FEN   8/8/4k3/8/8/3K4/8/7R w - - 0 1 moves h1h8 e6e7");
    EXPECT_EQ(engine.Ask("brd").substr(0, 17), " . . . . . . . R\n");
}

TEST_F(Uci, FindsMatesAndTellsTheirDistance) {
    EXPECT_EQ(BestMove("fen 6k1/5ppp/8/8/8/8/8/R6K w - - 0 1", "go depth 4"), "bestmove a1a8");
    EXPECT_NE(thinking.find(" score mate 1 nodes "), thinking.npos) << thinking;
    // A lone reply, after which the mate follows.
    BestMove("fen 7k/8/5QK1/8/8/8/8/8 b - - 0 1", "go depth 6");
    EXPECT_NE(thinking.find(" score mate -1 "), thinking.npos) << thinking;
}

TEST_F(Uci, KeepsAMateToItselfUntilItIsToldToStop) {
    // The search has nothing more to find here, long before it is stopped.
    engine.Send("position fen 6k1/5ppp/8/8/8/8/8/R6K w - - 0 1\ngo infinite\nisready");
    const std::string before = engine.ReadUntil("readyok");
    EXPECT_EQ(before.find("bestmove"), before.npos) << before;
    engine.Send("stop");
    EXPECT_TRUE(engine.ReadUntilPrefix("bestmove ").ends_with("bestmove a1a8\n"));
}

TEST_F(Uci, APonderHitMakesATimedSearchOfIt) {
    engine.Send("position startpos moves e2e4 e7e5\ngo ponder wtime 300 btime 300\nisready");
    const std::string before = engine.ReadUntil("readyok");
    EXPECT_EQ(before.find("bestmove"), before.npos);
    engine.Send("ponderhit");
    EXPECT_NE(engine.ReadUntilPrefix("bestmove ").find("bestmove "), std::string::npos);
}

TEST_F(Uci, APonderHitAfterTheSearchHasEndedPlaysWhatItFound) {
    engine.Ask("position startpos moves e2e4");
    // Ended by a command that is no answer to the pondering, a search keeps its move to itself.
    engine.Send("go ponder wtime 60000 btime 60000\nnopost");
    EXPECT_EQ(engine.WaitUntilIdle().find("bestmove"), std::string::npos);
    engine.Send("ponderhit");
    const std::string move = engine.ReadLine();
    EXPECT_TRUE(move.starts_with("bestmove ")) << move;
    EXPECT_EQ(engine.Ask("ponderhit"), "") << "once is enough";
    engine.Send("go ponder wtime 60000 btime 60000\nnopost");
    engine.WaitUntilIdle();
    EXPECT_EQ(engine.Ask("position startpos\nponderhit"), "") << "another game has begun";
}

TEST_F(Uci, KeepsThePonderedMoveWhenItsOwnLimitHasEndedTheSearch) {
    for (const char* const go : {"go ponder nodes 1000", "go ponder depth 3"}) {
        for (const char* const answer : {"stop", "ponderhit"}) {
            engine.Send(std::string("position startpos moves e2e4\n") + go);
            EXPECT_EQ(engine.Settle().find("bestmove"), std::string::npos) << go;
            engine.Send(answer);
            // The variation comes before the move, and tells the reply to expect.
            thinking = engine.ReadUntilPrefix("bestmove ");
            EXPECT_NE(thinking.find(" pv "), thinking.npos) << thinking;
            EXPECT_NE(thinking.find(" ponder "), thinking.npos) << thinking;
        }
    }
    engine.Send("go infinite nodes 1000");
    EXPECT_EQ(engine.Settle().find("bestmove"), std::string::npos);
    engine.Send("stop");
    engine.ReadUntilPrefix("bestmove ");
}

TEST_F(Uci, AnyMoveTimeEndsAndSoDoesAPlainGoAfterAnEndlessSearch) {
    for (const char* const go : {"go movetime 0", "go movetime -5", "go movetime 1"})
        EXPECT_TRUE(BestMove("startpos", go).starts_with("bestmove ")) << go;
    engine.Send("level 0 0 0\ngo infinite\nstop");
    engine.ReadUntilPrefix("bestmove ");
    engine.Send("level 40 0:01 0\ngo");
    engine.ReadUntilPrefix("bestmove ");
}

TEST_F(Uci, TheHashIsClearedByTheWholeNameOfItsButtonOnly) {
    const auto nodes = [this] {
        engine.Ask("position startpos"); // as before, its last move taken back
        BestMove("startpos", "go depth 8");
        const size_t at = thinking.rfind(" nodes ");
        return std::stol(thinking.substr(at + 7));
    };
    nodes();
    engine.Send("setoption name Clear value x");
    const long remembered = nodes();
    engine.Send("setoption name clear hash");
    EXPECT_GT(nodes(), 2 * remembered);
}

TEST_F(Uci, ShowsAsManyLinesAsThereAreMoves) {
    constexpr int LEGAL_MOVES = 2;
    engine.Send("setoption name MultiPV value 3");
    BestMove("startpos moves e2e4 e7e5 f2f4 d8h4", "go nodes 200000");
    std::istringstream lines(thinking);
    int shown = 0;
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("info multipv "))
            continue;
        const int expected = shown++ % LEGAL_MOVES + 1;
        EXPECT_TRUE(line.starts_with("info multipv " + std::to_string(expected) + " depth "))
            << line;
        EXPECT_NE(line.find(" currmovenumber "), line.npos) << line;
        EXPECT_NE(line.find(" pv "), line.npos) << line;
    }
    EXPECT_GT(shown, 0) << thinking;
    EXPECT_EQ(shown % LEGAL_MOVES, 0) << thinking;
    // The last line of all is that of the best move.
    EXPECT_GT(thinking.rfind("\ninfo depth "), thinking.rfind("\ninfo multipv ")) << thinking;
}

} // namespace
