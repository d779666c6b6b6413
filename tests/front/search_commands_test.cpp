// What arrives while the engine thinks or ponders, over real pipes.

#include <string>

#include <gtest/gtest.h>

#include "support/engine_process.h"

namespace {

constexpr const char* NoPondering = "Pondering = off";

TEST(SearchCommands, TheseEndTheSearchWithItsMove) {
    for (const std::string line : {"?", "?!", "stop", "post", "nopost", "force", "hard", "easy",
                                   "time 100", "undo", "exit", "g1f3", "E2e5", "h1h8"}) {
        SCOPED_TRACE(line);
        EngineProcess engine(NoPondering);
        engine.Settle();
        engine.Send("nopost\ngo infinite\n" + line);
        std::string text = engine.ReadUntilPrefix("move ");
        // Posting switched on shows the last line of thinking.
        if (line == "post")
            text.erase(0, text.find("move "));
        const bool illegal = line == "E2e5" || line == "h1h8";
        EXPECT_TRUE(text.starts_with((illegal ? "Illegal move: " + line + "\n" : "") + "move "))
            << text;
        engine.Ask("force\nundo");
        EXPECT_EQ(engine.Ask("brd"), StartBoard) << "only the engine's own move was made";
    }
}

TEST(SearchCommands, TheseLetTheSearchGoOn) {
    for (const char* const line : {"otim 5", "isready", "ponderhit", "xyzzy", "", "brd", " .", "Q",
                                   "level 40 5 0", "e2-e4"}) {
        SCOPED_TRACE(line);
        EngineProcess engine(NoPondering);
        engine.Settle();
        engine.Send(std::string("nopost\ngo infinite\n") + line + "\n.");
        EXPECT_EQ(engine.ReadUntilPrefix("stat01: ").find("move"), std::string::npos);
        engine.Send("?");
        engine.ReadUntilPrefix("move ");
    }
}

TEST(SearchCommands, ANewGameOrAResultLeavesNoMove) {
    for (const bool isNew : {true, false}) {
        EngineProcess engine(NoPondering);
        engine.Ask("nopost\nforce\ne2e4\ne7e5");
        const std::string board = isNew ? StartBoard : engine.Ask("brd");
        engine.Send(isNew ? "go infinite\nnew" : "go infinite\nresult 1-0 {White resigns}");
        EXPECT_EQ(engine.Ask(""), "");
        EXPECT_EQ(engine.Ask("brd"), board);
    }
}

TEST(SearchCommands, AnAbandonedEngineEndsWhateverItDoesAndSleeps) {
    for (const char* const search :
         {"st 600\ngo", "go depth 90", "uci\ngo movetime 1000000", "uci\ngo infinite",
          "uci\ngo ponder", "analyze", "demo", "perft 9"}) {
        SCOPED_TRACE(search);
        EngineProcess engine(NoPondering);
        engine.Ask("nopost");
        engine.Send(search);
        engine.Die();
        EXPECT_TRUE(engine.FallsAsleep());
        EXPECT_TRUE(engine.Running());
    }
}

TEST(SearchCommands, AreHeardBehindALongLine) {
    EngineProcess engine(NoPondering);
    engine.Ask("uci");
    engine.Send("go infinite\nisready");
    engine.ReadUntil("readyok");
    engine.Send(std::string(4 << 20, 'x') + "\nstop");
    const std::string text = engine.ReadUntilPrefix("bestmove ");
    const long nodes = std::stol(text.substr(text.rfind(" nodes ") + 7));
    EXPECT_LT(nodes, 10000000) << "which are 200 looks at the input";
}

// An engine that has answered 1. e2e4 and ponders; nothing is sent before it has said on what.
class PonderingEngine : public EngineProcess {
public:
    PonderingEngine() {
        Settle();
        Send("nopost\nsd 5\ne2e4");
        ReadUntilPrefix("move ");
        hint = ReadLine();
    }
    std::string Predicted() const {
        return hint.starts_with("Hint: ") ? hint.substr(6) : "";
    }
    // A legal reply that was not predicted.
    std::string Other() const {
        return Predicted() == "a2a3" ? "h2h3" : "a2a3";
    }

private:
    std::string hint;
};

TEST(Pondering, ThePredictedMoveAndAnyOtherAreAnsweredAndTheNextOneIsPredicted) {
    for (const bool predicted : {true, false}) {
        PonderingEngine engine;
        ASSERT_EQ(engine.Predicted().size(), 4U) << engine.Transcript();
        engine.Send("time 5000\notim 5000\n.");
        EXPECT_TRUE(engine.ReadLine().starts_with("stat01: ")) << "clocks are set and it goes on";
        engine.Send(predicted ? engine.Predicted() : engine.Other());
        EXPECT_TRUE(engine.ReadUntilPrefix("move ").starts_with("move ")) << engine.Transcript();
        EXPECT_TRUE(engine.ReadLine().starts_with("Hint: "));
        engine.Send("easy");
        EXPECT_NE(engine.Ask("remove\nbrd"), StartBoard);
        EXPECT_EQ(engine.Ask("remove\nbrd"), StartBoard) << "four plies were played";
    }
}

TEST(Pondering, ThePredictedMoveIsAnsweredWhateverTheSearchBeforeWasToldToWaitFor) {
    for (const char* const go : {"go infinite", "go searchmoves e2e4 d2d4"}) {
        SCOPED_TRACE(go);
        EngineProcess engine;
        engine.Ask("nopost\nlevel 0 0:01 0");
        engine.Send(std::string(go) + "\nisready");
        engine.ReadUntil("readyok");
        engine.Send("?");
        const std::string text = engine.ReadUntilPrefix("Hint: ");
        engine.Send(text.substr(text.rfind(' ') + 1, 4));
        engine.ReadUntilPrefix("move ");
    }
}

TEST(Pondering, AnIllegalMoveEndsIt) {
    PonderingEngine engine;
    engine.Send("a1a8");
    EXPECT_EQ(engine.ReadLine(), "Illegal move: a1a8");
    EXPECT_EQ(engine.Ask("remove\nbrd"), StartBoard) << "two plies were played";
}

TEST(Pondering, TheseEndItWithoutAWord) {
    for (const char* const line : {"?", "post", "easy", "force", "hard", "result *", "exit"}) {
        SCOPED_TRACE(line);
        PonderingEngine engine;
        EXPECT_EQ(engine.Ask(line), "");
        EXPECT_EQ(engine.Ask("remove\nbrd"), StartBoard) << "two plies were played";
    }
}

TEST(Pondering, UndoTakesTheEnginesMoveBackTooAndANewGameAll) {
    {
        PonderingEngine engine;
        engine.Ask("undo");
        EXPECT_EQ(engine.Ask("undo\nbrd"), StartBoard);
    }
    PonderingEngine engine;
    engine.Ask("new");
    EXPECT_EQ(engine.Ask("brd"), StartBoard);
    EXPECT_EQ(engine.Ask("black\nforce\ne7e5\nundo\nbrd"), StartBoard)
        << "and Black may be to move";
}

TEST(Pondering, APredictedMateIsNotAnnouncedBeforeItIsPlayed) {
    EngineProcess engine;
    engine.Settle();
    engine.Send("nopost\nsd 5\nloadfen 1r6/8/8/8/8/6k1/P7/7K w - -\ngo");
    engine.ReadUntilPrefix("move ");
    ASSERT_EQ(engine.ReadLine(), "Hint: b8b1");
    EXPECT_EQ(engine.Settle(), "");
    engine.Send("b8b1");
    EXPECT_EQ(engine.ReadLine(), "0-1 {Black mates}");
}

TEST(Pondering, StopsAtTheEndOfInput) {
    PonderingEngine engine;
    // A short clock, but no end to the pondering.
    engine.Send("?\nsd 90\nlevel 40 0:01 0");
    engine.Send(engine.Other());
    engine.ReadUntilPrefix("Hint: ");
    engine.CloseInput();
    EXPECT_TRUE(engine.FallsAsleep());
    EXPECT_TRUE(engine.Running());
}

} // namespace
