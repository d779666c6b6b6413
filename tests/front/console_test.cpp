// The console as a person or an old-protocol interface meets it: the real engine on real pipes.

#include <chrono>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "support/engine_process.h"

namespace {

// Asked for one line after the other, the engine answers this.
std::string Answer(const std::string& lines) {
    EngineProcess engine;
    return engine.Ask(lines);
}

constexpr const char* StartBoard = "*R*N*B*Q*K*B*N*R\n"
                                   "*P*P*P*P*P*P*P*P\n"
                                   " . . . . . . . .\n"
                                   " . . . . . . . .\n"
                                   " . . . . . . . .\n"
                                   " . . . . . . . .\n"
                                   " P P P P P P P P\n"
                                   " R N B Q K B N R\n";

struct Exchange {
    const char* what;
    const char* lines;
    const char* answer;
};

constexpr Exchange Exchanges[] = {
    {"board and flags", "brd\nmvd",
     "*R*N*B*Q*K*B*N*R\n*P*P*P*P*P*P*P*P\n . . . . . . . .\n . . . . . . . .\n . . . . . . . .\n"
     " . . . . . . . .\n P P P P P P P P\n R N B Q K B N R\ncastling flags = 15\n"},
    {"lines that match nothing", "xyzzy\n   \n\notim 500\n\"mvd", ""},
    {"stop is taken by st and does nothing", "stop", ""},
    {"an illegal move", "e2e5", "Illegal move: e2e5\n"},
    {"an upper-case move", "E2E4 please", "Illegal move: E2E4 please\n"},
    {"beginnings of keywords", "m",
     "-------------- Legal moves: ----------------\n"
     "b1a3 (0); b1c3 (0); g1f3 (0); g1h3 (0); a2a3 (0); a2a4 (0); b2b3 (0); b2b4 (0); c2c3 (0); "
     "c2c4 (0); d2d3 (0); d2d4 (0); e2e3 (0); e2e4 (0); f2f3 (0); f2f4 (0); g2g3 (0); g2g4 (0); "
     "h2h3 (0); h2h4 (0); \n"},
    {"captures with their scores come first", "loadfen 4k3/P7/8/3p4/4P3/8/8/4K3 w - -\nmoves",
     "-------------- Legal moves: ----------------\n"
     "e4d5 (100900); a7a8q (107900); a7a8r (-128100); a7a8n (-128100); a7a8b (-128100); "
     "e4e5 (0); e1d1 (0); e1f1 (0); e1d2 (0); e1e2 (0); e1f2 (0); \n"},
    {"mate and stalemate",
     "loadfen 7k/6Q1/6K1/8/8/8/8/8 b - -\nmoves\nloadfen 7k/5Q2/6K1/8/8/8/8/8 b - -\nmoves",
     "-------------- Legal moves: ----------------\n1-0 {White mates}\n\n"
     "-------------- Legal moves: ----------------\n1/2-1/2 {Stalemate}\n\n"},
    {"bare kings are announced twice",
     "loadfen 8/8/4k3/8/8/3K4/8/7R w - -\nforce\n"
     "loadfen k7/8/8/8/8/8/8/K7 w - -\nmoves",
     "-------------- Legal moves: ----------------\n"
     "1/2-1/2 {Draw by insufficient material}\n1/2-1/2 {Draw by insufficient material}\n"
     "a1b1 (0); a1a2 (0); a1b2 (0); \n"},
    {"edit", "edit\n#pe9?xa1 Pe2Ra1Ke1\nc ke8\n.\nbrd\nmvd",
     "Error\nError\n . . . .*K . . .\n . . . . . . . .\n . . . . . . . .\n . . . . . . . .\n"
     " . . . . . . . .\n . . . . . . . .\n . . . . P . . .\n R . . . K . . .\n"
     "castling flags = 2\n"},
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
    {"no book", "bkm", "Current nhash1 = 62112, nhash2 = 42397\nNo book loaded...\n"},
    {"tablebases", "egtbstat",
     "UseEGTB = TRUE\ntb_path = c:\\tablebases\\\nEGTB files not found\n"},
    {"a static evaluation with its figures", "evl",
     "Heuristic = 9\n"
     "PassedVector[BLACK] = 00000000 PassedVector[WHITE] = 00000000\n"
     "current_phase = 0, black_phase = 0, white_phase = 0\n"
     "optimism[BLACK] = 12, optimism[WHITE] = 12\n"
     "Material[WHITE] = 3900 Material[BLACK] = 3900 EvaluateMaterial() = 0\n"
     "ENDING(WHITE) = 0 ENDING(BLACK) = 0\n"
     "black_defects_k = 0 black_defects_q = 0 white_defects_k = 0 white_defects_q = 0\n"
     "shelter_penalty[BLACK] = 3 shelter_penalty[WHITE] = 3\n"
     "Danger[BLACK] = 0 Danger[WHITE] = 0\n"
     "Attacks[ChangeSide(SideToMove)] = 5\n"
     "Attacks[SideToMove] = 5\n"
     "Shelter[BLACK] = 24 Shelter[WHITE] = 24\n"
     "Dng = 29\n"},
    {"a passed pawn and a king in the open", "loadfen r2qr1k1/6pp/8/8/4K3/8/P5P1/R2QR3 b - -\nevl",
     "Heuristic = 219\n"
     "PassedVector[BLACK] = 00000000 PassedVector[WHITE] = 10000000\n"
     "current_phase = 85, black_phase = 85, white_phase = 85\n"
     "optimism[BLACK] = 179, optimism[WHITE] = 12\n"
     "Material[WHITE] = 2100 Material[BLACK] = 2100 EvaluateMaterial() = 0\n"
     "ENDING(WHITE) = 0 ENDING(BLACK) = 0\n"
     "black_defects_k = 3 black_defects_q = 10 white_defects_k = 6 white_defects_q = 7\n"
     "shelter_penalty[BLACK] = 3 shelter_penalty[WHITE] = 31\n"
     "Danger[BLACK] = 93 Danger[WHITE] = 0\n"
     "Attacks[ChangeSide(SideToMove)] = 760\n"
     "Attacks[SideToMove] = 5\n"
     "Shelter[BLACK] = 24 Shelter[WHITE] = 180\n"
     "Dng = 940\n"},
    {"perft without a depth, or with none to speak of", "perft\nperft 0\nperft -3", ""},
};

TEST(Console, AnswersByteForByte) {
    for (const Exchange& c : Exchanges) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(Answer(c.lines), c.answer);
    }
}

TEST(Console, TakesMovesBackToTheSetUpPosition) {
    EngineProcess engine;
    engine.Ask("force\nundo\nremove\ne2e4\nremove\ne2e4\ne7e5\ng1f3\nremove\nundo");
    EXPECT_EQ(engine.Ask("brd"), StartBoard);
}

TEST(Console, AnnouncesTheThirdRepetitionOnly) {
    EngineProcess engine;
    const std::string once = "b1c3\nb8c6\nc3b1\nc6b8\n";
    EXPECT_EQ(engine.Ask("force\n" + once + "moves").find("repetition"), std::string::npos);
    EXPECT_NE(engine.Ask(once + "moves").find("1/2-1/2 {Draw by repetition}\n"), std::string::npos);
}

TEST(Console, CountsMoves) {
    const std::string text = Answer("perft 4");
    EXPECT_TRUE(text.starts_with("total moves = 197281 time = ")) << text;
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

TEST(Console, AFixedTimeIsUsedWhateverTheClockSays) {
    EngineProcess engine;
    engine.Settle();
    engine.Send("time 3\nst 1\ngo");
    const std::string text = engine.ReadUntilPrefix("move ");
    std::istringstream lastLine(text.substr(text.rfind('\n', text.rfind("\nmove ") - 1) + 1));
    int depth = 0;
    int score = 0;
    int hundredths = 0;
    lastLine >> depth >> score >> hundredths;
    EXPECT_GE(hundredths, 95) << text;
}

TEST(Console, DepthOnePlaysTheFirstMoveByItsOrderScore) {
    EngineProcess engine;
    engine.Send("loadfen 4k3/8/8/3p4/4P3/8/8/4K3 w - -\nnopost\nsd 1\ngo");
    EXPECT_TRUE(engine.ReadUntilPrefix("move ").ends_with("move e4d5\n"));
}

TEST(Console, AMateEndsTheGameWithItsResult) {
    EngineProcess engine;
    engine.Ask("loadfen 6k1/5ppp/8/8/8/8/8/R6K w - -\nforce\na1a8");
    EXPECT_EQ(engine.Ask("go"), "1-0 {White mates}\n");
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

TEST(Console, RepeatsItselfToTheNode) {
    const auto nodesAndMoves = [] {
        EngineProcess engine;
        engine.Ask("easy\nsd 7\nlevel 0 600 0"); // time enough on any machine
        std::string text;
        for (const char* const line : {"e2e4", "go", "go"}) {
            engine.Send(line);
            text += engine.ReadUntilPrefix("move ");
        }
        // Only the third number, the time, may differ.
        std::string kept;
        std::istringstream rows(text);
        for (std::string row; std::getline(rows, row);) {
            std::istringstream fields(row);
            std::string field;
            for (int i = 0; fields >> field; i++)
                kept += i == 2 && row[0] != 'm' ? "" : field + " ";
        }
        return kept;
    };
    const std::string first = nodesAndMoves();
    EXPECT_NE(first.find("move"), std::string::npos);
    EXPECT_EQ(nodesAndMoves(), first);
}

constexpr const char* BrokenFens[] = {
    "",
    "8",
    "/",
    "//////////////////",
    "8/8/8/8/8/8/8/8 w - -",
    "8/8/8/8/8/8/8/8 b KQkq e3",
    "kkk5/8/8/8/8/8/8/KKK5 w KQkq -",
    "QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ w - -",
    "qQqQqQqQ/8/QqQqQqQq/8/qQqQqQqQ/8/QqQqQqQq/7K w - -",
    "rnbqkbnr/pppppppp w KQkq -",
    "4k3/8/8/8/8/8/8/4R1K1 w - -",
    "PPPPPPPP/8/8/8/8/8/8/pppppppp b - -",
    "99999999999999999999/zzzz/4k3 x y z",
    "4k3/8/8/8/8/8/4r3/4K2R w K -",
};

TEST(Console, SurvivesBrokenPositions) {
    EngineProcess engine;
    engine.Ask("nopost\neasy");
    for (const char* const fen : BrokenFens) {
        SCOPED_TRACE(fen);
        engine.Ask(std::string("force\nloadfen ") + fen +
                   "\nbrd\nmvd\nmoves\nperft 2\nsd 4\nst 1\ngo");
        engine.WaitUntilIdle();
        engine.Ask("loadfen " + std::string(fen) + std::string(100000, '8') + "\nmoves\ngo");
        engine.WaitUntilIdle();
        EXPECT_TRUE(engine.Running()) << engine.Transcript();
    }
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
