#include "book/book_choice.h"

#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/moves/legal_moves.h"
#include "board/notation.h"
#include "board/position.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "platform/runtime_rand.h"
#include "support/book_file.h"

namespace {

constexpr const char* Start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
constexpr uint16_t KILLED = BOOK_KILLED;
constexpr BookSettings Discover = {.BookLearningMode = BOOK_DISCOVER};

class BookChoice : public BookTest {
protected:
    // How often each move is chosen in a number of draws.
    static std::map<std::string, int> Choices(int draws = 200) {
        std::map<std::string, int> counts;
        for (int i = 0; i < draws; i++)
            counts[MoveText(ChooseBookMove())]++;
        return counts;
    }
    static std::string Listing() {
        return Printed([] { ListBookMoves(); });
    }
};

TEST_F(BookChoice, OpensWhatItCanAndSaysSo) {
    std::string spoilt = BookBytes(1, {});
    spoilt.replace(0, 5, "Other");
    const struct {
        std::string bytes;
        const char* printed;
        bool open;
    } cases[] = {
        {BookBytes(1, {{Start, {{"e2e4", 0}}}}), "1 nodes in openings book\n", true},
        {BookBytes(2, {}), "Book version 2 not supported\n", false},
        {BookBytes(-1, {}), "0 nodes in openings book\n", true},
        {spoilt, "0 nodes in openings book\n", true}, // another magic text passes
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Open(c.bytes), c.printed);
        EXPECT_EQ(BookIsOpen(), c.open);
        EXPECT_TRUE(Book.UseBookLearning && Book.UseBookWeights);
    }
    EXPECT_EQ(Open(BookBytes(0, {})), "NG: Book learning not supported for book version 0\n"
                                      "0 nodes in openings book\n");
    Open(BookBytes(1, {}));
    EXPECT_FALSE(Book.UseBookLearning || Book.UseBookWeights) << "not switched on again";
    EXPECT_EQ(Printed([] { OpenBook("nowhere.tqn"); }), "Error opening \"nowhere.tqn\"!\n");
    EXPECT_FALSE(BookIsOpen());
    EXPECT_EQ(ChooseBookMove(), NO_MOVE);
}

TEST_F(BookChoice, FindsEveryPositionAndNoOther) {
    const char* const fens[] = {"8/8/8/4k3/8/8/8/K7 w - -", "8/8/8/8/4k3/8/8/K7 w - -",
                                "8/8/4k3/8/8/8/8/K7 w - -", "7k/8/8/8/8/8/8/K7 w - -"};
    std::vector<BookTestNode> nodes;
    for (const char* const added : fens) {
        nodes.push_back({added, {{"a1a2", 0}}});
        Open(BookBytes(1, nodes));
        for (size_t i = 0; i < std::size(fens); i++) {
            LoadFen(fens[i]);
            EXPECT_EQ(ChooseBookMove() != NO_MOVE, i < nodes.size()) << nodes.size() << ' ' << i;
            SideToMove = BLACK;
            EXPECT_EQ(ChooseBookMove(), NO_MOVE);
        }
    }
}

TEST_F(BookChoice, WeighsMovesByTheirResults) {
    using Moves = std::vector<BookTestMove>;
    const Moves close = {
        {"e2e4", Points(10, 10)}, {"d2d4", Points(90, 110)}, {"c2c4", Points(89, 110)}};
    const Moves played = {{"e2e4", Points(9, 1)},
                          {"d2d4", Points(2, 2)},
                          {"c2c4", Points(3, 1)},
                          {"g1f3", Points(3, 1)}};
    const Moves killed = {{"e2e4", KILLED}, {"d2d4", Points(1, 9)}};
    const struct {
        const char* name;
        Moves moves;
        BookSettings settings;
        const char* chosen; // all moves that are, in the order of their text
    } cases[] = {
        {"450 beside 500, but not 447", close, {.VarietyOfPlay = 10}, "d2d4 e2e4 "},
        {"the best only", close, {.VarietyOfPlay = 0}, "e2e4 "},
        {"any that is not killed", killed, {.VarietyOfPlay = 100}, "d2d4 "},
        {"no games count as even", {{"e2e4", 0}, {"d2d4", 0}}, {}, "d2d4 e2e4 "},
        {"all killed", {{"e2e4", KILLED}, {"d2d4", KILLED}}, {.VarietyOfPlay = 100}, "0000 "},
        {"all lost", {{"e2e4", Points(0, 4)}, {"d2d4", Points(0, 2)}}, {}, "d2d4 e2e4 "},
        {"the least played, then the best, then the first", played, Discover, "c2c4 "},
        {"an unplayed one", {{"e2e4", Points(2, 0)}, {"d2d4", 0}}, Discover, "d2d4 "},
        {"the first", played, {.UseBookWeights = false}, "e2e4 "},
        {"the first is killed", killed, {.UseBookWeights = false}, "0000 "},
        {"moves that are none", {{"e2e5", 0}, {"e7e5", 0}, {"d2d4", 0}}, {}, "d2d4 "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Open(BookBytes(1, {{Start, c.moves}}));
        SetStartPosition();
        Book = c.settings;
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
    std::vector<std::string> damaged = {std::string(1000, '\xff'), std::string(1000, '\0')};
    for (size_t length = 0; length < whole.size(); length++)
        damaged.push_back(whole.substr(0, length));
    for (int i = 0; i < 300; i++) {
        damaged.push_back(whole);
        for (int change = 0; change < 3; change++)
            damaged.back()[random() % whole.size()] = char(random());
    }
    SetStartPosition();
    int found = 0;
    for (const std::string& bytes : damaged) {
        Open(bytes);
        const Move move = ChooseBookMove();
        found += move != NO_MOVE;
        EXPECT_TRUE(move == NO_MOVE || IsLegal(move));
        Listing();
    }
    EXPECT_GT(found, 100) << "most damage does not touch the way to the position";
    // The moves that a cut-off node still has are played.
    Open(whole.substr(0, whole.size() - 1));
    EXPECT_NE(ChooseBookMove(), NO_MOVE);
}

} // namespace
