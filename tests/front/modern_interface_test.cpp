// The modern interface as clients meet it: the real engine on real pipes. What is not told here is
// as in the classic one, which all other tests talk to.

#include <cstdio>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "support/book_file.h"
#include "support/engine_process.h"
#include "support/scratch.h"

namespace {

constexpr const char* MODERN = "Interface = modern\n";

constexpr const char* StartFen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -";

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != text.npos;
}

int64_t NumberAfter(const std::string& text, const std::string& word) {
    const size_t at = text.rfind(word);
    return at == text.npos ? -1 : std::atoll(text.c_str() + at + word.size());
}

TEST(Interface, TheEnvironmentGoesBeforeTheSettingsFile) {
    const auto startsSilently = [](const char* settings) {
        EngineProcess engine(settings);
        const std::string text = engine.Settle();
        return !Has(text, "Error") && !Has(text, "not found");
    };
    EXPECT_FALSE(startsSilently(""));
    EXPECT_TRUE(startsSilently("; Interface = classic\ninterface = MODERN\n"));
    setenv("TARQUELIN_INTERFACE", "modern", 1);
    EXPECT_TRUE(startsSilently("Interface = classic\n"));
    setenv("TARQUELIN_INTERFACE", "classic", 1);
    EXPECT_FALSE(startsSilently(MODERN));
    unsetenv("TARQUELIN_INTERFACE");
}

TEST(ModernInterface, LeavesWhateverItDoesWhenAStreamHasLostItsOtherEndOrItIsToldTo) {
    for (const char* const doing :
         {"", "st 600\ngo", "uci\ngo infinite", "uci\ngo ponder", "xboard\nanalyze", "demo",
          "xboard\nhard\nsd 5\ne2e4", "xboard\nsetboard 7k/5Q2/6K1/8/8/8/8/8 b - - 0 1\nanalyze"}) {
        for (const auto end : {&EngineProcess::CloseInput, &EngineProcess::StopReading,
                               &EngineProcess::Die, &EngineProcess::Terminate}) {
            SCOPED_TRACE(doing);
            EngineProcess engine(MODERN);
            engine.Settle();
            engine.Send(std::string("nopost\n") + doing);
            (engine.*end)();
            EXPECT_EQ(engine.WaitForExit(), 0);
        }
    }
}

class ModernUci : public testing::Test {
protected:
    void SetUp() override {
        engine.Send("uci");
        block = engine.ReadUntil("uciok");
    }
    std::string Search(const std::string& lines) {
        engine.Send(lines);
        return engine.ReadUntilPrefix("bestmove ");
    }
    EngineProcess engine{MODERN};
    std::string block;
};

TEST_F(ModernUci, OptionsMayHaveSeveralWords) {
    EXPECT_TRUE(block.ends_with("option name Clear Hash type button\n"
                                "option name Ponder type check default false\n"
                                "option name Move Overhead type spin min 0 max 5000 default 0\n"
                                "option name UCI_EngineAbout type string default Tarquelin 1.40 by "
                                "Ivor T. Penhallow\n"
                                "option name UCI_LimitStrength type check default false\n"
                                "option name UCI_Elo type spin min 800 max 2800 default 2800\n"
                                "option name UCI_AnalyseMode type check default false\n"))
        << block;
    engine.Send("setoption name move overhead value 120\nsetoption name Hash File value 1\n"
                "setoption name Ponder value true\nsetoption name Tropism Value 7\nuci");
    const std::string changed = engine.ReadUntil("uciok");
    EXPECT_TRUE(Has(changed, "Move Overhead type spin min 0 max 5000 default 120\n"));
    EXPECT_TRUE(Has(changed, "Tropism type spin min 0 max 300 default 7\n"));
}

TEST_F(ModernUci, ANewGameBeginsInSilence) {
    EXPECT_EQ(engine.Ask("position startpos moves e2e4\nucinewgame\nmvd"), "castling flags = 15\n");
    EXPECT_EQ(engine.Ask("brd"), StartBoard);
}

TEST_F(ModernUci, FinishedPositionsGetTheNullMove) {
    const std::string mated = "position startpos moves f2f3 e7e5 g2g4 d8h4\n";
    EXPECT_EQ(Search(mated + "go depth 3"), "info depth 0 score mate 0\nbestmove 0000\n");
    EXPECT_EQ(Search("position fen 7k/5Q2/8/8/8/8/8/K7 b - - 0 1\ngo wtime 100 btime 100"),
              "info depth 0 score cp 0\nbestmove 0000\n");
    engine.Send(mated + "go infinite");
    EXPECT_FALSE(Has(engine.Settle(), "bestmove"));
    EXPECT_EQ(Search("stop"), "bestmove 0000\n");
    engine.Send(mated + "go ponder wtime 1000 btime 1000");
    EXPECT_FALSE(Has(engine.Settle(), "bestmove"));
    EXPECT_EQ(Search("ponderhit"), "bestmove 0000\n");
}

TEST_F(ModernUci, ReadsTheUsualFenFields) {
    engine.Send("position fen 4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2 moves e5d6 e8d7");
    EXPECT_EQ(engine.Ask("brd"), " . . . . . . . .\n . . .*K . . . .\n . . . P . . . .\n"
                                 " . . . . . . . .\n . . . . . . . .\n . . . . . . . .\n"
                                 " . . . . . . . .\n . . . . K . . .\n");
    // One quiet ply before the fifty moves are over, a queen is worth nothing.
    const std::string text = Search("position fen 7k/8/8/8/8/8/8/KQ6 w - - 99 90\ngo depth 6");
    EXPECT_TRUE(Has(text, " score cp 0 ")) << text;
}

TEST_F(ModernUci, LinesOfThinkingAreWhole) {
    std::string text = Search("position startpos\ngo movetime 200");
    EXPECT_GE(NumberAfter(text, " time "), 150) << text;
    EXPECT_LT(NumberAfter(text, " time "), 20000) << text;
    EXPECT_TRUE(Has(text, "info multipv 1 depth 2 ")) << text;
    // The last lines are those of all variations, with a score of its own each.
    engine.Send("setoption name MultiPV value 2");
    text = Search("position fen 6k1/5ppp/8/8/8/8/8/R6K w - - 0 1\ngo depth 4");
    const size_t last = text.rfind("info multipv 1 ");
    EXPECT_TRUE(Has(text.substr(last), " score mate 1 ")) << text;
    EXPECT_TRUE(Has(text.substr(last), "info multipv 2 ")) << text;
    EXPECT_TRUE(Has(text.substr(last), " score cp ")) << text;
}

TEST_F(ModernUci, LimitsOfNodesAndMatesHold) {
    const std::string text = Search("position startpos moves e2e4\ngo nodes 20000");
    EXPECT_GE(NumberAfter(text, " nodes "), 20000) << text;
    EXPECT_LE(NumberAfter(text, " nodes "), 22000) << text;
    const std::string mate =
        Search("position fen r1b1kb1r/pppp1ppp/5q2/4n3/3KP3/2N3PN/PPP4P/R1BQ1B1R b kq - 0 1\n"
               "go mate 3");
    EXPECT_TRUE(Has(mate, " score mate 3 ")) << mate;
    Search("position startpos\ngo mate 1"); // ends, though there is none
}

TEST_F(ModernUci, ALevelHoldsInGamesAlone) {
    engine.Send("setoption name UCI_LimitStrength value true\nsetoption name UCI_Elo value 1800");
    const std::string options = engine.Ask("uci");
    EXPECT_TRUE(Has(options, "option name UCI_LimitStrength type check default true\n")) << options;
    EXPECT_TRUE(Has(options, "max 2800 default 1800\n")) << options;
    constexpr int64_t FEW = 10000;
    // The level takes its time, and listens.
    engine.Send("position startpos\ngo wtime 900000 btime 900000\nisready");
    EXPECT_FALSE(Has(engine.ReadUntil("readyok"), "bestmove"));
    EXPECT_LT(NumberAfter(Search("stop"), " nodes "), FEW);
    // What pondering has found is not played.
    engine.Send("go ponder wtime 1000 btime 1000");
    engine.ReadUntilPrefix("info multipv 1 depth 9 ");
    EXPECT_LT(NumberAfter(Search("ponderhit"), " nodes "), FEW);
    engine.Send("go infinite");
    engine.ReadUntilPrefix("info multipv 1 depth 9 ");
    EXPECT_GT(NumberAfter(Search("stop"), " nodes "), FEW);
    EXPECT_GT(
        NumberAfter(Search("setoption name UCI_AnalyseMode value true\ngo nodes 30000"), " nodes "),
        FEW);
}

TEST_F(ModernUci, InterruptsAreIgnored) {
    engine.Interrupt();
    EXPECT_EQ(engine.Ask("mvd"), "castling flags = 15\n");
}

class ModernXboard : public testing::Test {
protected:
    void SetUp() override {
        engine.Send("xboard\nprotover 2");
        features = engine.ReadUntilPrefix("feature ");
    }
    // Moves until the engine ponders on the opponent's reply, which it tells.
    std::string MoveAndWaitForHint(const std::string& move) {
        engine.Send(move);
        return engine.ReadUntilPrefix("Hint: ");
    }
    EngineProcess engine{MODERN};
    std::string features;
};

TEST_F(ModernXboard, NamesFeaturesAndKeepsThem) {
    for (const char* const feature :
         {" ping=1 ", " setboard=1 ", " usermove=1 ", " analyze=1 ", " colors=0 ", " sigint=0 ",
          " myname=\"Tarquelin 1.40\" ", " variants=\"normal\" ", " memory=1 ", " egt=\"nalimov\" ",
          " done=1\n"})
        EXPECT_TRUE(Has(features, feature)) << features;
    EXPECT_EQ(engine.Ask("accepted setboard\nping 7"), "pong 7\n");
    engine.Send("force\nsetboard 4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2\nusermove e5d6\nusermove e5d6");
    EXPECT_EQ(engine.Settle(), "Illegal move: e5d6\n");
    EXPECT_EQ(engine.Ask("setboard 8/8/8/8/8/8/8/K7 w - - 0 1"),
              "tellusererror Illegal position\n");
    // The answer waits for the move that is being thought about.
    engine.Send("new\neasy\nst 1\nusermove e2e4\nping 8");
    const std::string text = engine.ReadUntil("pong 8");
    EXPECT_TRUE(Has(text, "\nmove ")) << text;
}

TEST_F(ModernXboard, LinesThatPonderingCannotTakeEndItAndAreDone) {
    const std::string quick = "new\nlevel 0 0:01 0\n";
    struct Case {
        const char* line;
        const char* board; // a beginning of it
    };
    // The men that have moved are back, or others are there.
    for (const Case& c : {Case{"force\nremove", StartBoard}, Case{"remove", StartBoard},
                          Case{"undo\nundo", StartBoard},
                          Case{"setboard 7k/8/8/8/8/8/8/K7 w - - 0 1", " . . . . . . .*K\n"}}) {
        SCOPED_TRACE(c.line);
        MoveAndWaitForHint(quick + "usermove e2e4");
        const std::string text = engine.Ask(std::string(c.line) + "\nbrd");
        EXPECT_TRUE(Has(text, c.board)) << engine.Transcript();
        engine.Send("force");
    }
    // The engine takes the turn of the side that it did not play.
    MoveAndWaitForHint(quick + "usermove e2e4");
    engine.Send("easy\ngo");
    engine.ReadUntilPrefix("move ");
}

TEST_F(ModernXboard, PonderingGoesOnAfterALineThatChangesNothing) {
    MoveAndWaitForHint("new\nlevel 0 0:01 0\nusermove e2e4");
    const std::string board = engine.Ask("brd");
    EXPECT_TRUE(Has(board, " . . . . P . . .\n")) << board;
    engine.ReadUntilPrefix("Hint: ");
    // Meanwhile "?" and "post" have nothing to end.
    engine.Send("?\npost\nping 3\n.");
    EXPECT_EQ(engine.ReadUntil("pong 3"), "");
    EXPECT_TRUE(engine.ReadUntilPrefix("stat01: ").ends_with("\n")) << "it is still searching";
}

TEST_F(ModernXboard, AnalysisGoesOnWithWhateverALineHasChanged) {
    const auto movesToSearch = [&](const std::string& lines) {
        engine.Send(lines + "\n.");
        const std::string line = engine.ReadUntilPrefix("stat01: ");
        int moves = 0;
        EXPECT_EQ(
            sscanf(line.c_str() + line.rfind("stat01: "), "stat01: %*d %*d %*d %*d %d", &moves), 1)
            << line;
        return moves;
    };
    EXPECT_EQ(movesToSearch("nopost\nanalyze\nforce"), 20);
    EXPECT_EQ(movesToSearch("setboard 4k3/8/8/8/8/8/8/R3K3 w - - 0 1"), 15);
    EXPECT_EQ(movesToSearch("a1a3\nedit\n#\nKa1\nRh2\nc\nKe8\n."), 5);
    EXPECT_EQ(movesToSearch("new\nusermove e2e4\nanalyze\nmemory 20"), 20);
    // Nothing is left to find here, and it waits.
    engine.Send("setboard 6k1/5ppp/8/8/8/8/8/R6K w - - 0 1\n.");
    while (engine.ReadLine() != "stat01: 0 0 0 0 0")
        engine.Send(".");
    EXPECT_EQ(movesToSearch("setboard rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR b KQkq - 0 1"),
              20);
    EXPECT_EQ(engine.Ask("exit\n."), "") << "it goes on no more";
}

TEST_F(ModernXboard, ForceLetsNoMoveBePlayed) {
    engine.Send("new\neasy\nst 60\ngo\nping 1\n.");
    engine.ReadUntilPrefix("stat01: ");
    engine.Send("force\nping 2");
    EXPECT_FALSE(Has(engine.ReadUntil("pong 2"), "move ")) << engine.Transcript();
    EXPECT_TRUE(Has(engine.Ask("brd"), StartBoard)) << engine.Transcript();
    engine.Send("sd 3\ngo");
    engine.ReadUntilPrefix("move ");
}

TEST_F(ModernXboard, ALevelDoesNotPonder) {
    engine.Send("strength 900\nnew\nlevel 0 0:01 0\nusermove e2e4");
    std::string text = engine.ReadUntilPrefix("move ");
    text += engine.Settle();
    EXPECT_FALSE(Has(text, "Hint: ")) << text;
    // By depth: a second would be too short for a reply to expect where the machine is slow.
    MoveAndWaitForHint("strength full\nnew\nlevel 0 5:00 0\nsd 5\nusermove e2e4");
}

TEST_F(ModernXboard, AnnouncesTheEndOfTheGameWithItsOwnMove) {
    const std::string prefix = "new\neasy\nsd 4\nforce\nsetboard ";
    engine.Send(prefix + "6k1/5ppp/8/8/8/8/8/R6K w - - 0 1\ngo");
    engine.ReadUntil("move a1a8");
    EXPECT_EQ(engine.ReadLine(), "1-0 {White mates}");
    engine.Send(prefix + "k7/2K5/8/8/8/8/8/1r6 w - - 99 90\ngo");
    engine.ReadUntilPrefix("move ");
    EXPECT_EQ(engine.ReadLine(), "1/2-1/2 {Draw by the 50-moves rule}");
}

TEST_F(ModernXboard, ClaimsDrawsByMaterialOnlyWhereNoMateIsPossible) {
    struct Case {
        const char* placement;
        bool drawn;
    };
    for (const Case& c :
         {Case{"k7/8/8/8/8/8/8/7K", true}, Case{"kb6/8/8/8/8/8/8/7K", true},
          Case{"k7/8/8/8/8/8/8/6NK", true}, Case{"kb6/8/8/8/8/8/8/B6K", true},
          Case{"kb6/8/8/8/8/8/8/1B5K", false}, Case{"kn6/8/8/8/8/8/8/6NK", false},
          Case{"8/8/8/4k3/8/8/4P3/4K3", false}, Case{"k7/8/8/8/8/8/8/5NNK", false}}) {
        const std::string text =
            engine.Ask("force\nsetboard " + std::string(c.placement) + " w - - 0 1\nmoves");
        EXPECT_EQ(Has(text, "\n1/2-1/2 {Draw by insufficient material}\n"), c.drawn) << c.placement;
        EXPECT_EQ(text.find("1/2-1/2"), text.rfind("1/2-1/2")) << c.placement;
    }
}

// Opens a book with that content, or one that knows one move of the starting position, and returns
// its file.
std::string GiveBook(EngineProcess& engine,
                     const std::string& bytes = BookBytes(1, {{StartFen, {{"e2e4", 0}}}})) {
    const std::string file = engine.Directory() + "/Book.tqn";
    WriteFileText(file, bytes);
    engine.Settle();
    engine.Send("uci\nsetoption name OpeningsBook value Book.tqn");
    return file;
}

TEST(ModernInterface, ADemonstrationEndsWithItsGame) {
    EngineProcess engine(MODERN);
    // Two knights go out and home again.
    GiveBook(
        engine,
        BookBytes(1, {{StartFen, {{"g1f3", 0}}},
                      {"rnbqkbnr/pppppppp/8/8/8/5N2/PPPPPPPP/RNBQKB1R b KQkq -", {{"g8f6", 0}}},
                      {"rnbqkb1r/pppppppp/5n2/8/8/5N2/PPPPPPPP/RNBQKB1R w KQkq -", {{"f3g1", 0}}},
                      {"rnbqkb1r/pppppppp/5n2/8/8/8/PPPPPPPP/RNBQKBNR b KQkq -", {{"f6g8", 0}}}}));
    engine.Send("xboard\ndemo");
    engine.ReadThrough("{Draw by repetition}");
    EXPECT_FALSE(Has(engine.WaitUntilIdle(), "move ")) << engine.Transcript();
}

TEST(ModernAnalysis, HasNoBookWhateverItsLimitIs) {
    EngineProcess engine(MODERN);
    GiveBook(engine);
    engine.Send("go depth 5");
    EXPECT_FALSE(Has(engine.ReadUntilPrefix("bestmove "), " depth 5 "));
    engine.Send("setoption name UCI_AnalyseMode value true\nposition startpos\ngo depth 5");
    EXPECT_TRUE(Has(engine.ReadUntilPrefix("bestmove "), " depth 5 "));
}

// What a search of the starting position with a known book teaches that book.
uint16_t Taught(const std::string& lines) {
    EngineProcess engine("Interface = modern\nPondering = off\nBookLearningBound = -1\n");
    const std::string file = GiveBook(engine);
    engine.Send("position startpos moves e2e4 e7e5\n" + lines);
    engine.ReadUntilPrefix("bestmove ");
    engine.Settle();
    return uint16_t(StatisticsInBook(FileText(file), "e2e4"));
}

TEST(ModernLearning, OnlySearchesWhoseMoveIsPlayedTeach) {
    EXPECT_NE(Taught("go depth 3"), 0);
    EXPECT_EQ(Taught("go infinite\nstop"), 0);
    EXPECT_EQ(Taught("go ponder wtime 1000 btime 1000\nstop"), 0);
    EXPECT_EQ(Taught("setoption name UCI_AnalyseMode value true\ngo depth 3"), 0);
    EXPECT_EQ(Taught("setoption name OwnBook value false\ngo depth 3"), 0);
}

} // namespace
