#include "book/book_choice.h"

#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/notation.h"
#include "board/position.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "platform/runtime_rand.h"
#include "support/book_file.h"
#include "support/engine_setup.h"
#include "support/scratch.h"

namespace {

constexpr const char* Start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
constexpr uint16_t KILLED = BOOK_KILLED;

class BookChoice : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
        Book = {};
    }
    void TearDown() override {
        Open("");
        Book = {};
        SetStartPosition();
    }
    // Opens a book of these bytes and returns what was printed.
    static std::string Open(const std::string& bytes) {
        WriteFileText("test.tqn", bytes);
        testing::internal::CaptureStdout();
        OpenBook("test.tqn");
        return testing::internal::GetCapturedStdout();
    }
    // How often each move is chosen in a number of draws.
    static std::map<std::string, int> Choices(int draws = 200) {
        std::map<std::string, int> counts;
        for (int i = 0; i < draws; i++)
            counts[MoveText(ChooseBookMove())]++;
        return counts;
    }
    static std::string Listing() {
        testing::internal::CaptureStdout();
        ListBookMoves();
        return testing::internal::GetCapturedStdout();
    }

    ScratchDirectory directory;
};

TEST_F(BookChoice, OpensWhatItCanAndSaysSo) {
    struct Case {
        const char* name;
        std::string bytes;
        const char* printed;
        bool open;
    };
    const std::string old = "NG: Book learning not supported for book version 0\n";
    std::string spoilt = BookBytes(1, {});
    spoilt.replace(0, 5, "Other");
    const Case cases[] = {
        {"version 1", BookBytes(1, {{Start, {{"e2e4", 0}}}}), "1 nodes in openings book\n", true},
        {"version 2", BookBytes(2, {}), "Book version 2 not supported\n", false},
        {"negative version", BookBytes(-1, {}), "0 nodes in openings book\n", true},
        {"another magic text passes", spoilt, "0 nodes in openings book\n", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Open(c.bytes), c.printed);
        EXPECT_EQ(BookIsOpen(), c.open);
        EXPECT_TRUE(Book.UseBookLearning && Book.UseBookWeights);
    }
    EXPECT_EQ(Open(BookBytes(0, {})), old + "0 nodes in openings book\n");
    EXPECT_FALSE(Book.UseBookLearning || Book.UseBookWeights);
    Open(BookBytes(1, {}));
    EXPECT_FALSE(Book.UseBookLearning || Book.UseBookWeights) << "not switched on again";
    testing::internal::CaptureStdout();
    OpenBook("nowhere.tqn");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error opening \"nowhere.tqn\"!\n");
    EXPECT_FALSE(BookIsOpen());
    EXPECT_EQ(ChooseBookMove(), NO_MOVE);
}

TEST_F(BookChoice, FindsEveryPositionAndNoOther) {
    std::vector<BookTestNode> nodes;
    const std::string placements[] = {"8/8/8/4k3/8/8/8/K7", "8/8/8/8/4k3/8/8/K7",
                                      "8/8/4k3/8/8/8/8/K7", "7k/8/8/8/8/8/8/K7",
                                      "8/7k/8/8/8/8/8/K7"};
    std::vector<std::string> fens;
    for (const std::string& placement : placements)
        fens.push_back(placement + " w - -");
    for (size_t count = 0; count <= fens.size(); count++) {
        Open(BookBytes(1, nodes));
        for (size_t i = 0; i < fens.size(); i++) {
            LoadFen(fens[i].c_str());
            EXPECT_EQ(MoveText(ChooseBookMove()), i < count ? "a1a2" : "0000") << count << ' ' << i;
            SideToMove = BLACK;
            EXPECT_EQ(ChooseBookMove(), NO_MOVE);
        }
        if (count < fens.size())
            nodes.push_back({fens[count].c_str(), {{"a1a2", 0}}});
    }
}

TEST_F(BookChoice, WeighsMovesByTheirResults) {
    struct Case {
        const char* name;
        std::vector<BookTestMove> moves;
        int variety;
        bool weights;
        int32_t mode;
        const char* chosen; // all moves that are, in the order of their text
    };
    const std::vector<BookTestMove> close = {
        {"e2e4", Points(10, 10)}, {"d2d4", Points(90, 110)}, {"c2c4", Points(89, 110)}};
    const std::vector<BookTestMove> played = {{"e2e4", Points(9, 1)},
                                              {"d2d4", Points(2, 2)},
                                              {"c2c4", Points(3, 1)},
                                              {"g1f3", Points(3, 1)}};
    const Case cases[] = {
        {"450 beside 500, but not 447", close, 10, true, BOOK_KILL, "d2d4 e2e4 "},
        {"the best only", close, 0, true, BOOK_KILL, "e2e4 "},
        {"any", close, 100, true, BOOK_KILL, "c2c4 d2d4 e2e4 "},
        {"no games count as even", {{"e2e4", 0}, {"d2d4", 0}}, 0, true, BOOK_KILL, "d2d4 e2e4 "},
        {"killed", {{"e2e4", KILLED}, {"d2d4", Points(1, 9)}}, 100, true, BOOK_KILL, "d2d4 "},
        {"all killed", {{"e2e4", KILLED}, {"d2d4", KILLED}}, 100, true, BOOK_KILL, "0000 "},
        {"all lost",
         {{"e2e4", Points(0, 4)}, {"d2d4", Points(0, 2)}},
         0,
         true,
         BOOK_KILL,
         "d2d4 e2e4 "},
        {"the least played, then the best, then the first", played, 0, true, BOOK_DISCOVER,
         "c2c4 "},
        {"an unplayed one", {{"e2e4", Points(2, 0)}, {"d2d4", 0}}, 0, true, BOOK_DISCOVER, "d2d4 "},
        {"the first", played, 100, false, BOOK_KILL, "e2e4 "},
        {"the first is killed", {{"e2e4", KILLED}, {"d2d4", 0}}, 0, false, BOOK_KILL, "0000 "},
        {"moves that are none",
         {{"e2e5", 0}, {"e7e5", 0}, {"d2d4", 0}},
         0,
         true,
         BOOK_KILL,
         "d2d4 "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Open(BookBytes(1, {{Start, c.moves}}));
        SetStartPosition();
        Book.VarietyOfPlay = c.variety;
        Book.UseBookWeights = c.weights;
        Book.BookLearningMode = c.mode;
        std::string chosen;
        for (const auto& [move, count] : Choices())
            chosen += move + ' ';
        EXPECT_EQ(chosen, c.chosen);
    }
}

TEST_F(BookChoice, DrawsAmongVersion0MovesAlike) {
    Open(BookBytes(0, {{Start, {{"e2e4", 0}, {"a2a3", 255}, {"d2d4", 254}, {"c2c4", 7}}}}));
    SetStartPosition();
    SeedRand(3);
    const auto counts = Choices(3000);
    ASSERT_EQ(counts.size(), 3u);
    for (const auto& [move, count] : counts)
        EXPECT_NEAR(count, 1000, 150) << move;
    EXPECT_EQ(Listing(), "4 moves from current pos in book:\n"
                         "e2e4 0\na2a3 255\nd2d4 254\nc2c4 7\n");
}

TEST_F(BookChoice, PawnsOnTheLastRankBecomeQueensAndCastlingNeedsItsRight) {
    constexpr const char* Promotes = "1n5k/P7/8/8/8/8/8/K7 w - -";
    constexpr const char* Castles = "4k3/8/8/8/8/8/8/4K2R w K -";
    Open(BookBytes(1, {{Promotes, {{"a7b8", 0}}}, {Castles, {{"e1g1", 0}}}}));
    LoadFen(Promotes);
    EXPECT_EQ(MoveText(ChooseBookMove()), "a7b8q");
    LoadFen(Castles);
    EXPECT_EQ(MoveText(ChooseBookMove()), "e1g1");
    LoadFen("4k3/8/8/8/8/8/8/4K2R w - -");
    EXPECT_EQ(ChooseBookMove(), NO_MOVE);
}

TEST_F(BookChoice, ListsMovesWithTheirResults) {
    Open(BookBytes(
        1, {{Start,
             {{"e2e4", Points(5, 2)}, {"d2d4", 0}, {"g2g4", KILLED}, {"c2c4", Points(0, 1)}}}}));
    SetStartPosition();
    EXPECT_EQ(Listing(), "4 moves from current pos in book:\n"
                         "e2e4 71% (not less than 3 game(s))\nd2d4 ?\ng2g4 -\n"
                         "c2c4 0% (not less than 0 game(s))\n");
    SideToMove = BLACK;
    EXPECT_EQ(Listing(), "No moves from current pos in book\n");
}

// Whatever a file holds, a choice is a legal move or none, and comes at once.
TEST_F(BookChoice, DamagedBooksYieldLegalMovesOrNone) {
    std::mt19937 random(7);
    const std::string whole =
        BookBytes(1, {{Start, {{"e2e4", 0}, {"d2d4", Points(3, 3)}, {"g2g4", KILLED}}},
                      {"7k/8/8/8/8/8/8/K7 w - -", {{"a1a2", 0}}}});
    std::vector<std::string> damaged = {"", "x", std::string(1000, '\xff'),
                                        std::string(1000, '\0')};
    for (size_t length = 0; length < whole.size(); length++)
        damaged.push_back(whole.substr(0, length));
    for (int i = 0; i < 500; i++) {
        std::string bytes = whole;
        for (int change = 0; change < 3; change++)
            bytes[random() % bytes.size()] = char(random());
        damaged.push_back(bytes);
    }
    SetStartPosition();
    int found = 0;
    for (const std::string& bytes : damaged) {
        Open(bytes);
        const Move move = ChooseBookMove();
        found += move != NO_MOVE;
        EXPECT_TRUE(move == NO_MOVE || MoveText(MoveFromText(MoveText(move))) == MoveText(move));
        Listing();
    }
    EXPECT_GT(found, 200) << "most damage does not touch the way to the position";
    // The moves that a cut-off node still has are played.
    Open(whole.substr(0, whole.size() - 1));
    EXPECT_NE(ChooseBookMove(), NO_MOVE);
}

} // namespace
