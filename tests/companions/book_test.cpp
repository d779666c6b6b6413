// The book companion as a user runs it; what it writes is read by the engine's own procedures.

#include <filesystem>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/moves/make_move.h"
#include "board/notation.h"
#include "board/position.h"
#include "book/book.h"
#include "platform/bytes.h"
#include "support/companion.h"
#include "support/engine_setup.h"
#include "support/scratch.h"
#include "tools/pgn_moves.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* Start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
constexpr const char* AfterE4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1";

class BookCompanion : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
    }
    void TearDown() override {
        testing::internal::CaptureStdout();
        OpenBook("nowhere.tqn");
        testing::internal::GetCapturedStdout();
        SetStartPosition();
    }
    // Runs the companion in the scratch directory; `before` goes into the shell first.
    static Outcome Run(const std::string& arguments, const std::string& before = "") {
        return RunCompanion("tarquelin-book", arguments, before);
    }
    // The moves that the engine finds in a book: "e2e4 3:1" with the half-points, "e2e4 -" killed.
    static std::string Moves(const char* book, const char* fen = Start) {
        testing::internal::CaptureStdout();
        OpenBook(book);
        testing::internal::GetCapturedStdout();
        LoadFen(fen);
        BookNode node = {};
        std::string text;
        if (!FindPosition(node))
            return "not in the book";
        for (const BookMove* move = node.moves; move != node.moves + node.count; move++) {
            text += text.empty() ? "" : ", ";
            text += ShortMoveText(MoveWord(move->from, move->to, PAWN)) + " ";
            text += move->killed ? "-"
                                 : std::to_string(move->statistics & 255) + ":" +
                                       std::to_string(move->statistics >> 8);
        }
        return text;
    }
    static std::string Game(const char* white, const char* black, const char* result,
                            const std::string& moves) {
        return std::string("[Event \"?\"]\n[White \"") + white + "\"]\n[Black \"" + black +
               "\"]\n[Result \"" + result + "\"]\n\n" + moves + " " + result + "\n\n";
    }

    ScratchDirectory directory;
};

} // namespace

TEST_F(BookCompanion, CountsTheGamesThatItsOptionsAskFor) {
    WriteFileText("games.pgn", Game("Ann", "Bob", "1-0", "1. e4 {best} e5 2. Nf3") +
                                   Game("Cid", "Ann", "0-1", "1. e4 c5") +
                                   Game("Bob", "Cid", "1/2-1/2", "1. d4 d5") +
                                   Game("Bob", "Dan", "*", "1. e4 e5") +
                                   Game("Dan", "Cid", "1-0", "1. e4 e5 2. Nf3"));
    struct Case {
        const char* name;
        const char* options;
        const char* first;
        const char* second; // after e4
    };
    const Case cases[] = {
        {"all", "", "e2e4 4:2, d2d4 1:1", "e7e5 0:4, c7c5 2:0"},
        {"one ply", "--depth 1", "e2e4 4:2, d2d4 1:1", "not in the book"},
        {"White's moves", "--side white", "e2e4 4:2, d2d4 1:1", "not in the book"},
        {"a player's moves", "--player ann", "e2e4 2:0", "c7c5 2:0"},
        {"the winner's moves", "--winner", "e2e4 4:0", "c7c5 2:0"},
        {"two games at least", "--min-games 2", "e2e4 4:2", "e7e5 0:4"},
        {"five at least here", "--min-position-games 5", "e2e4 4:2, d2d4 1:1", "not in the book"},
        {"bad moves killed", "--min-score 51", "e2e4 4:2, d2d4 -", "c7c5 2:0, e7e5 -"},
        {"bad moves left out", "--min-score 51 --drop", "e2e4 4:2", "c7c5 2:0"},
        {"scaled down", "--most 3", "e2e4 3:2, d2d4 1:1", "e7e5 0:3, c7c5 2:0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const Outcome built = Run(std::string("build --output b.tqn games.pgn ") + c.options);
        EXPECT_EQ(built.status, 0) << built.text;
        EXPECT_EQ(Moves("b.tqn"), c.first);
        EXPECT_EQ(Moves("b.tqn", AfterE4), c.second);
        EXPECT_EQ(Run("check b.tqn").status, 0);
    }
}

TEST_F(BookCompanion, ScalesManyGamesIntoBytesThatMeanNothingElse) {
    struct Case {
        int won;
        int lost;
        const char* moves;
    };
    for (const Case& c : {Case{127, 0, "e2e4 254:0"}, Case{200, 100, "e2e4 254:127"},
                          Case{300, 300, "e2e4 254:254"}, Case{1, 600, "e2e4 0:254"}}) {
        SCOPED_TRACE(c.moves);
        std::string games;
        for (int i = 0; i < c.won; i++)
            games += Game("A", "B", "1-0", "1. e4");
        for (int i = 0; i < c.lost; i++)
            games += Game("A", "B", "0-1", "1. e4");
        WriteFileText("games.pgn", games);
        EXPECT_EQ(Run("build --output b.tqn games.pgn").status, 0);
        EXPECT_EQ(Moves("b.tqn"), c.moves);
    }
}

TEST_F(BookCompanion, NamesWhatItCannotReadAndGoesOn) {
    WriteFileText("games.pgn", Game("A", "B", "1-0", "1. e4 e5 2. Qxe5 d6") + "garbage ] [ {\n" +
                                   Game("A", "B", "1-0", "1. d4 Nd7 2. c4") +
                                   Game("A", "B", "0-1", "1. c4"));
    WriteFileText("lines.tsv", "eco\tname\tpgn\nA00\tOne\t1. Nf3 d5 2.g3\n"
                               "A00\tBad\t1. b3 Nf9\n# comment\nA00\tEnd\t1. f4 d5 O-O");
    const Outcome built = Run("build --output b.tqn games.pgn lines.tsv");
    EXPECT_EQ(built.status, 0);
    EXPECT_TRUE(built.Says("games.pgn: game 1, ply 3: \"Qxe5\" is no legal move")) << built.text;
    EXPECT_TRUE(built.Says("\"c4\"") == false) << built.text;
    EXPECT_TRUE(built.Says("lines.tsv:3: ply 2: \"Nf9\" is no legal move")) << built.text;
    EXPECT_TRUE(built.Says("lines.tsv:5: ply 3: \"O-O\" is no legal move")) << built.text;
    EXPECT_EQ(Moves("b.tqn"), "d2d4 2:0, e2e4 2:0, c2c4 0:2, g1f3 0:0, b2b3 0:0, f2f4 0:0");
}

TEST_F(BookCompanion, JudgesMovesByTheScoresOfSearchedPositions) {
    WriteFileText("lines", "e4 e5\nd4\ng4\nf3\na3\n");
    WriteFileText("weights", "# made by hand\n"
                             "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w\t40\te2e4\n"
                             "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b\t-40\tc7c5\n"
                             "rnbqkbnr/pppppppp/8/8/3P4/8/PPP1PPPP/RNBQKBNR b\t0\tg8f6\n"
                             "rnbqkbnr/pppppppp/8/8/2P5/8/PP1PPPPP/RNBQKBNR b\t4\te7e5\n"
                             "rnbqkbnr/pppppppp/8/8/6P1/8/PPPPPP1P/RNBQKBNR b\t101\td7d5\n"
                             "rnbqkbnr/pppppppp/8/8/8/5P2/PPPPP1PP/RNBQKBNR b\t41\te7e5\n"
                             "a line of nonsense\n");
    struct Case {
        const char* options;
        const char* first;
        const char* second;
    };
    const Case cases[] = {
        {"", "e2e4 22:18, d2d4 20:20, f2f3 -, g2g4 -, a2a3 -", "e7e5 -"},
        {"--searched-moves", "e2e4 22:18, d2d4 20:20, c2c4 19:21, f2f3 -, g2g4 -, a2a3 -",
         "c7c5 17:23, e7e5 -"},
        {"--bad-score -41 --most-loss 100 --prior 10 --keep-unknown",
         "e2e4 6:4, d2d4 5:5, f2f3 4:6, a2a3 0:0, g2g4 -", "e7e5 0:0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.options);
        const Outcome built =
            Run(std::string("build --output b.tqn --weights weights lines ") + c.options);
        EXPECT_TRUE(built.status == 0 && built.Says("weights:8:")) << built.text;
        EXPECT_EQ(Moves("b.tqn"), c.first);
        EXPECT_EQ(Moves("b.tqn", AfterE4), c.second);
    }
}

TEST_F(BookCompanion, MergesPointsAndKeepsKilledMovesKilled) {
    WriteFileText("a.pgn", Game("A", "B", "1-0", "1. e4 e5") + Game("A", "B", "0-1", "1. d4"));
    WriteFileText("b.pgn", Game("A", "B", "0-1", "1. e4 c5") + Game("A", "B", "1-0", "1. d4"));
    EXPECT_EQ(Run("build --output a.tqn a.pgn --min-score 1").status, 0);
    EXPECT_EQ(Run("build --output b.tqn b.pgn").status, 0);
    EXPECT_EQ(Moves("a.tqn"), "e2e4 2:0, d2d4 -");
    EXPECT_EQ(Run("merge --output a.tqn a.tqn b.tqn").status, 0);
    EXPECT_EQ(Moves("a.tqn"), "e2e4 2:2, d2d4 -");
    EXPECT_EQ(Moves("a.tqn", AfterE4), "c7c5 2:0, e7e5 -");
}

TEST_F(BookCompanion, ShowsABookFromTheStart) {
    WriteFileText("games.pgn", Game("A", "B", "1-0", "1. e4 c5") + Game("A", "B", "1-0", "1. e4"));
    EXPECT_EQ(Run("build --output b.tqn games.pgn").status, 0);
    const Outcome dump = Run("dump b.tqn");
    EXPECT_TRUE(dump.Says("\n    e2e4 4:0 (100%)\ne2e4\n")) << dump.text;
    EXPECT_TRUE(Run("dump --records b.tqn").Says("0 keys ")) << dump.text;
    // A book of one side's moves is shown as a whole, too.
    EXPECT_EQ(Run("build --output b.tqn --side black games.pgn").status, 0);
    EXPECT_TRUE(Run("dump b.tqn").Says("e2e4\n"));
    EXPECT_TRUE(Run("check b.tqn").Says("1 positions, 0 of them not reached"));
}

TEST_F(BookCompanion, FindsPlantedDamage) {
    EXPECT_EQ(Run("random --output b.tqn --moves 300").status, 0);
    EXPECT_EQ(Run("check b.tqn").status, 0) << FileText("out");
    const std::string sound = FileText("b.tqn");
    const auto bytes = [](const std::string& text) {
        return reinterpret_cast<const unsigned char*>(text.data());
    };
    const size_t node = LoadLittle32(bytes(sound) + BOOK_HEADER_SIZE + 8);
    struct Case {
        const char* name;
        size_t offset;
        std::string damage;
        const char* said;
    };
    const Case cases[] = {
        {"magic", 0, "x", "does not begin like a book"},
        {"version", 24, "\2", "version"},
        {"count", 34, "\1", "too short for its index"},
        {"order", BOOK_HEADER_SIZE + 3, "\x7f", "less than those before"},
        {"equal keys", BOOK_HEADER_SIZE, sound.substr(BOOK_HEADER_SIZE + 12, 8), "the one before"},
        {"node outside", BOOK_HEADER_SIZE + 8, std::string(3, '\xff'), "not whole"},
        {"node in the index", BOOK_HEADER_SIZE + 8, std::string(2, '\0'), "not whole"},
        {"node shared", BOOK_HEADER_SIZE + 20, sound.substr(BOOK_HEADER_SIZE + 8, 4), "share"},
        {"square", node + 1, "\x40", "no move from square 64"},
        {"illegal move", node + 1, std::string("\0\x3f", 2), "is not legal after"},
        {"move count", sound.size() - 5, "\2", "not whole"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string damaged = sound;
        damaged.replace(c.offset, c.damage.size(), c.damage);
        WriteFileText("b.tqn", damaged);
        const Outcome check = Run("check b.tqn");
        EXPECT_EQ(check.status, 1);
        EXPECT_TRUE(check.Says(c.said)) << check.text;
    }
}

TEST_F(BookCompanion, LivesThroughAnyFile) {
    EXPECT_EQ(Run("random --output b.tqn --moves 300").status, 0);
    const std::string sound = FileText("b.tqn");
    std::mt19937 numbers(5);
    for (int i = 0; i < 12; i++) {
        std::string damaged = sound.substr(0, i % 2 == 0 ? numbers() % sound.size() : sound.size());
        for (size_t j = BOOK_HEADER_SIZE; j < damaged.size(); j++) {
            if (i % 3 == 0 ? numbers() % 100 == 0 : i % 3 == 1)
                damaged[j] = char(numbers());
        }
        WriteFileText("b.tqn", damaged);
        for (const char* command : {"check b.tqn", "dump b.tqn", "dump --records b.tqn",
                                    "survey b.tqn", "merge --output c.tqn b.tqn"}) {
            const Outcome outcome = Run(command);
            EXPECT_TRUE(outcome.status == 0 || outcome.status == 1) << command << outcome.text;
        }
    }
}

TEST_F(BookCompanion, LeavesTheOldBookWhereItCannotWriteTheNewOne) {
    WriteFileText("old.tqn", "old");
    const Outcome full = Run("random --output old.tqn --moves 3000", "trap '' XFSZ; ulimit -f 8;");
    EXPECT_EQ(full.status, 1);
    EXPECT_TRUE(full.Says("Cannot write old.tqn: File too large")) << full.text;
    EXPECT_EQ(FileText("old.tqn"), "old");
    EXPECT_FALSE(fs::exists("old.tqn.unfinished"));
    // What is no file is never replaced.
    EXPECT_EQ(Run("random --output pipe --moves 10", "mkfifo pipe;").status, 1);
    EXPECT_TRUE(fs::is_fifo("pipe"));
}

TEST_F(BookCompanion, BuildsTheShippedBookFromItsSources) {
    const std::string data = TARQUELIN_SOURCE_DIR "/data/";
    const std::string lines = data + "openings/";
    const Outcome built = Run("build --output b.tqn --searched-moves --weights " + lines +
                              "weights.tsv " + lines + "[a-e].tsv");
    EXPECT_EQ(built.status, 0) << built.text;
    EXPECT_TRUE(FileText("b.tqn") == FileText(data + "Book.tqn"));
    EXPECT_TRUE(Run("check b.tqn").Says("0 of them not reached")) << FileText("out");
    // Some variety at the first move, and nothing that is bad by the searches.
    const Outcome survey = Run("survey --worst 1 --weights " + lines + "weights.tsv b.tqn");
    const std::string first = survey.text.substr(0, survey.text.find('\n'));
    for (const char* move : {"e2e4", "d2d4", "g1f3", "c2c4"})
        EXPECT_NE(first.find(move), std::string::npos) << first;
    for (const char* side : {"as White\n", "as Black\n"}) {
        const size_t worst = survey.text.find(side);
        ASSERT_NE(worst, std::string::npos) << survey.text;
        EXPECT_GE(std::stoi(survey.text.substr(worst + std::string(side).size())), -110);
    }
}

TEST_F(BookCompanion, ShipsTheMainOpeningsForBothSides) {
    // The largest groups of the named lines, by volume. What has a "?" loses so much that the
    // engine answers it only.
    const char* const openings[] = {
        "c4 e5 Nc3 Nf6 Nf3 Nc6 g3",             // English
        "d4 f5 c4 Nf6 g3 e6 Bg2 Be7",           // Dutch
        "d4 Nf6 c4 c5 d5 e6 Nc3 exd5",          // Benoni
        "Nf3 d5 g3 c5 Bg2 Nc6 d4 Nf6",          // Zukertort
        "c4 Nf6 g3 c6 Nf3 d5 b3",               // Reti
        "e4 c5 Nf3 d6 d4 cxd4 Nxd4 Nf6 Nc3 a6", // Najdorf
        "e4 c5 Nf3 d6 d4 cxd4 Nxd4 Nf6 Nc3 g6", // Dragon
        "e4 c6 d4 d5 exd5 cxd5 c4 Nf6",         // Caro-Kann
        "e4 Nf6 e5 Nd5 d4 d6 c4 Nb6",           // Alekhine
        "e4 d5 exd5 Nf6 d4",                    // Scandinavian
        "e4 d6 d4 Nf6 Nc3 g6 f4 Bg7",           // Pirc
        "e4 g6 d4 Bg7 Nc3 d6 Nf3",              // Modern
        "e4 e5 Nf3 Nc6 Bb5 a6 Ba4 Nf6",         // Ruy Lopez
        "e4 e6 d4 d5 Nc3 Bb4 e5 c5",            // French
        "e4 e5 Nf3 Nc6 Bc4 Bc5 b4 Bxb4",        // Italian
        "e4 e5 f4? exf4 Nf3 g5 Bc4",            // King's Gambit
        "e4 e5 Nf3 Nc6 d4 exd4 Nxd4 Bc5",       // Scotch
        "e4 e5 Nf3 Nf6 Nxe5 d6 Nf3 Nxe4",       // Petrov
        "e4 e5 Nf3 Nc6 Nc3 Nf6 Bb5 Bb4",        // Four Knights
        "d4 d5 c4 e6 Nc3 Nf6 Bg5 Be7",          // Queen's Gambit Declined
        "d4 d5 c4 c6 Nc3 Nf6 e3 e6",            // Semi-Slav
        "d4 d5 Nf3 Nf6 Bg5 e6 e3 c5",           // Queen's Pawn
        "d4 d5 c4 dxc4 Nf3 Nf6 e3 e6",          // Queen's Gambit Accepted
        "d4 Nf6 c4 g6 Nc3 d5 Nf3 Bg7",          // Gruenfeld
        "d4 d5 c4 c6 Nf3 Nf6 Nc3 dxc4",         // Slav
        "d4 d5 c4 e6 Nc3 c5 cxd5 exd5",         // Tarrasch
        "d4 Nf6 c4 g6 Nc3 Bg7 e4 d6",           // King's Indian
        "d4 Nf6 c4 e6 Nc3 Bb4 e3 O-O",          // Nimzo-Indian
        "d4 Nf6 c4 e6 Nf3 b6 g3 Bb7",           // Queen's Indian
        "d4 Nf6 c4 e6 g3 d5 Bg2 Be7",           // Catalan
        "d4 Nf6 c4 e6 Nf3 Bb4 Bd2",             // Bogo-Indian
    };
    testing::internal::CaptureStdout();
    OpenBook(TARQUELIN_SOURCE_DIR "/data/Book.tqn");
    testing::internal::GetCapturedStdout();
    for (const char* const opening : openings) {
        SetStartPosition();
        std::istringstream moves(opening);
        for (std::string san; moves >> san;) {
            const bool answeredOnly = san.back() == '?';
            const Move move = PgnParseSan(san.substr(0, san.find('?'))).move;
            BookNode node = {};
            const auto isThere = [=](const BookMove& entry) {
                return entry.from == From(move) && entry.to == To(move) &&
                       entry.killed == answeredOnly;
            };
            EXPECT_TRUE(FindPosition(node) &&
                        std::any_of(node.moves, node.moves + node.count, isThere))
                << san << " of " << opening;
            MakeMove(move, true);
        }
    }
}
