// The console as a person or an old-protocol interface meets it: the real engine on real pipes.

#include <string>

#include <gtest/gtest.h>

#include "support/engine_process.h"

namespace {

// Asked for one line after the other, the engine answers this.
std::string Answer(const std::string& lines) {
    EngineProcess engine;
    return engine.Ask(lines);
}

struct Exchange {
    const char* what;
    const char* lines;
    const char* answer;
};

constexpr Exchange Exchanges[] = {
    {"lines that match nothing", "xyzzy\n   \n\notim 500\n\"mvd\nstop", ""},
    {"an illegal move", "e2e5", "Illegal move: e2e5\n"},
    {"an upper-case move", "E2E4 please", "Illegal move: E2E4 please\n"},
    {"a beginning of a keyword, and captures with their scores",
     "loadfen 4k3/P7/8/3p4/4P3/8/8/4K3 w - -\nm",
     "-------------- Legal moves: ----------------\n"
     "e4d5 (100900); a7a8q (107900); a7a8r (-128100); a7a8n (-128100); a7a8b (-128100); "
     "e4e5 (0); e1d1 (0); e1f1 (0); e1d2 (0); e1e2 (0); e1f2 (0); \n"},
    {"edit", "edit\n#pe9?xa1 Pe2Ra1Ke1\nc ke8\n.\nbrd\nmvd",
     "Error\nError\n . . . .*K . . .\n . . . . . . . .\n . . . . . . . .\n . . . . . . . .\n"
     " . . . . . . . .\n . . . . . . . .\n . . . . P . . .\n R . . . K . . .\n"
     "castling flags = 2\n"},
    {"a mate ends the game with its result",
     "loadfen 6k1/5ppp/8/8/8/8/8/R6K w - -\nforce\na1a8\ngo", "1-0 {White mates}\n"},
    {"moves are taken back to the set-up position",
     "force\nundo\nremove\ne2e4\nremove\ne2e4\ne7e5\ng1f3\nremove\nundo\nbrd\nmvd",
     "*R*N*B*Q*K*B*N*R\n*P*P*P*P*P*P*P*P\n . . . . . . . .\n . . . . . . . .\n . . . . . . . .\n"
     " . . . . . . . .\n P P P P P P P P\n R N B Q K B N R\ncastling flags = 15\n"},
    {"an en-passant field names the pawn",
     "force\nloadfen rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f5 0 3\n"
     "e5d6\ne5f6\nundo\nundo\ne5f6\n"
     "loadfen rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f6 0 3\ne5f6",
     "Illegal move: e5d6\nIllegal move: e5f6\n"},
    {"a changed turn cannot be taken back past",
     "force\ne2e4\nwhite\nundo\nremove\nd2d4\nundo\nblack\ne7e5\nbrd",
     "*R*N*B*Q*K*B*N*R\n*P*P*P*P .*P*P*P\n . . . . . . . .\n . . . .*P . . .\n . . . . P . . .\n"
     " . . . . . . . .\n P P P P . P P P\n R N B Q K B N R\n"},
    {"a turn given back leaves the game as it was",
     "force\ne2e4\ne7e5\nblack\nwhite\nundo\nundo\nbrd", StartBoard},
    {"no text, no position", "loadfen\nloadfen   \nposition fen\nposition fen  \nbrd", StartBoard},
    {"tablebases", "egtbstat",
     "UseEGTB = TRUE\ntb_path = c:\\tablebases\\\nEGTB files not found\n"},
    {"a passed pawn and a king in the open", "loadfen r2qr1k1/6pp/8/8/4K3/8/P5P1/R2QR3 b - -\nevl",
     "Heuristic = 345\n"
     "PassedVector[BLACK] = 00000000 PassedVector[WHITE] = 10000000\n"
     "current_phase = 85, black_phase = 85, white_phase = 85\n"
     "optimism[BLACK] = 179, optimism[WHITE] = 12\n"
     "Material[WHITE] = 2100 Material[BLACK] = 2100 EvaluateMaterial() = 0\n"
     "ENDING(WHITE) = 0 ENDING(BLACK) = 0\n"
     "black_defects_k = 3 black_defects_q = 10 white_defects_k = 6 white_defects_q = 7\n"
     "shelter_penalty[BLACK] = 3 shelter_penalty[WHITE] = 31\n"
     "Danger[BLACK] = 112 Danger[WHITE] = 0\n"
     "Attacks[ChangeSide(SideToMove)] = 760\n"
     "Attacks[SideToMove] = 5\n"
     "Shelter[BLACK] = 24 Shelter[WHITE] = 180\n"
     "Dng = 940\n"},
    {"depth 1 plays the first move by its order score",
     "loadfen 4k3/8/8/3p4/4P3/8/8/4K3 w - -\neasy\nnopost\nsd 1\ngo", "move e4d5\n"},
    {"perft without a depth, or with none to speak of", "perft\nperft 0\nperft -3", ""},
};

TEST(Console, AnswersByteForByteAndAtOnce) {
    for (const Exchange& c : Exchanges) {
        SCOPED_TRACE(c.what);
        EngineProcess engine;
        engine.Settle();
        engine.Send(c.lines);
        // Nothing more is sent before the whole answer has come: a GUI waits for it as well.
        EXPECT_EQ(engine.ReadThrough(c.answer), c.answer);
        EXPECT_EQ(engine.Settle(), "");
    }
}

TEST(Console, HelpWaitsForALineBetweenItsPages) {
    EngineProcess engine;
    engine.Settle();
    engine.Send("help");
    const std::string first = engine.ReadThrough("\nPress <enter> to continue....");
    EXPECT_TRUE(first.starts_with("Tarquelin commands:\n-----")) << first;
    EXPECT_NE(first.find("nopost .................... Toggles silent mode on\n"), first.npos);
    EXPECT_EQ(first.find("perft"), first.npos);
    engine.Send("");
    const std::string second = engine.Settle();
    EXPECT_TRUE(second.starts_with("\nperft <d> ................. Tests")) << second;
    EXPECT_TRUE(second.ends_with("Sets white to move and engine side to black\n\n")) << second;
}

TEST(Console, AnyLineThatBeginsWithQEndsTheProcess) {
    for (const char* const line : {"quit", "q", "queen", " Q"}) {
        EngineProcess engine;
        engine.Send(line);
        EXPECT_EQ(engine.WaitForExit(), 0) << line;
    }
}

TEST(Console, AnswersATypedMove) {
    EngineProcess engine;
    engine.Send("easy\nsd 5\ne2e4");
    const std::string text = engine.ReadUntilPrefix("move ");
    EXPECT_NE(text.find("\n5 "), std::string::npos) << "the last line tells the depth:\n" << text;
    const std::string board = engine.Ask("brd");
    EXPECT_NE(board.find(" . . . . P . . ."), std::string::npos);
    EXPECT_EQ(engine.Ask("force\nremove\nbrd"), StartBoard);
}

TEST(Console, ResignsAfterSoManyLostSearchesInARow) {
    struct Case {
        const char* settings;
        const char* resignations; // one letter a search
    };
    for (const Case& c : {Case{"ResignTimes = 2", "-rr"}, Case{"ResignTimes = 3", "--r"},
                          Case{"ResignTimes = 0", "rrr"}, Case{"ResignValue = 20000", "---"}}) {
        SCOPED_TRACE(c.settings);
        EngineProcess engine(c.settings);
        engine.Ask("easy\nnopost\nsd 4\nloadfen 7k/6p1/8/3q4/8/8/8/K7 w - -");
        std::string resignations;
        for (const char* const line : {"go", "g7g6", "g6g5"}) {
            engine.Send(line);
            const bool resigns = engine.ReadUntilPrefix("move ").starts_with("resign\nmove ");
            resignations += resigns ? 'r' : '-';
        }
        EXPECT_EQ(resignations, c.resignations);
    }
}

TEST(Console, GoReadsItsParametersInAnyOrder) {
    for (const char* const line : {"go searchmoves h2h3 zzzz a2a3 depth 3",
                                   "go depth 3 searchmoves h2h3 a2a3", "go bogus depth 3 wtime"}) {
        SCOPED_TRACE(line);
        EngineProcess engine;
        engine.Ask("easy\nsd 9");
        engine.Send(line);
        const std::string text = engine.ReadUntilPrefix("move ");
        EXPECT_TRUE(text.starts_with("3 ")) << "the depth was read:\n" << text;
        const bool restricted = text.ends_with("h2h3\n") || text.ends_with("a2a3\n");
        EXPECT_EQ(restricted, std::string(line).find("searchmoves") != std::string::npos) << text;
    }
}

TEST(Console, ADemonstrationEndsWithAResult) {
    EngineProcess engine;
    // A second for every move's clock, so that a move takes a few hundredths.
    engine.Ask("nopost\nlevel 0 0:01 0");
    engine.Send("demo");
    // Drawn games go on until told otherwise.
    const std::string text = engine.ReadThrough("{");
    EXPECT_TRUE(text.starts_with("move ")) << text.substr(0, 200);
    engine.Send("new");
    engine.WaitUntilIdle();
    EXPECT_EQ(engine.Ask("brd"), StartBoard);
}

TEST(Console, SurvivesAbsurdNumbersAndEndlessLines) {
    EngineProcess engine;
    engine.Ask("nopost\neasy\nsd 2");
    const std::string number(400, '9');
    for (const std::string command :
         {"level", "st", "time", "otime", "m1", "c1", "m3", "c3", "debug"}) {
        engine.Ask(command + " " + number + " " + number + " " + number + " -" + number);
        engine.Ask(command + " -" + number);
        engine.Ask(command);
    }
    engine.Ask("st 0\ngo depth 2 wtime " + number + " btime -" + number + " winc -" + number +
               " movestogo -" + number + " nodes -" + number);
    engine.WaitUntilIdle();
    engine.Ask("go depth 5");
    engine.WaitUntilIdle();
    engine.SendBytes(std::string(3 << 20, 'x'));
    engine.SendBytes("\n" + std::string(1 << 20, ' ') + "\n");
    engine.SendBytes(std::string("mv\0d\nmvd\r\n", 10));
    EXPECT_EQ(engine.Settle().find("castling flags = "), 0U) << engine.Transcript();
}

TEST(Console, AtTheEndOfInputItWaitsWithoutUsingTheProcessor) {
    EngineProcess engine;
    engine.Settle();
    engine.CloseInput();
    EXPECT_TRUE(engine.FallsAsleep());
    EXPECT_TRUE(engine.Running());
}

TEST(Console, CarriageReturnsBelongToTheLineEnd) {
    EXPECT_EQ(Answer("mvd\r\n\r\negtbstat\r\nmvd\r").substr(0, 21), "castling flags = 15\nU");
    EXPECT_EQ(Answer("e2e5\rx\ry\r\r"), "Illegal move: e2e5 x\ry\r\n");
    // Whatever follows it: a search does not wait for that.
    EngineProcess engine;
    engine.Ask("easy\nnopost");
    engine.SendBytes("st 1\ngo\nisready\n");
    engine.ReadUntil("readyok");
    engine.SendBytes("mvd\r");
    engine.ReadUntilPrefix("move ");
    engine.SendBytes("\n");
    EXPECT_EQ(engine.ReadLine(), "castling flags = 15");
}

} // namespace
