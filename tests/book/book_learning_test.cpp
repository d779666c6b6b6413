#include "book/book_learning.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/notation.h"
#include "board/position.h"
#include "board/recompute.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "book/unwritten.h"
#include "front/game/adjudication.h"
#include "front/game/game.h"
#include "front/search_host.h"
#include "platform/file_lock.h"
#include "search/host.h"
#include "support/book_file.h"
#include "support/scratch.h"

namespace {

constexpr const char* Start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -";
constexpr const char* AfterE4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq -";
constexpr const char* AfterE5 = "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w KQkq -";

class BookLearning : public BookTest {
protected:
    static void Play(const std::string& moves) {
        SetStartPosition();
        BookLearned = false;
        for (size_t i = 0; i < moves.size(); i += 5)
            PlayMove(MoveFromText(moves.substr(i, 4)));
    }
};

TEST_F(BookLearning, CreditsTheMovesOfTheSideToMoveOnce) {
    for (const auto& [result, expected] :
         {std::pair{BOOK_WON, Points(7, 3)}, std::pair{BOOK_LOST, Points(5, 5)},
          std::pair{BOOK_DRAWN, Points(6, 4)}}) {
        SCOPED_TRACE(result);
        Open(BookBytes(1, {{Start, {{"d2d4", 0}, {"e2e4", Points(5, 3)}}},
                           {AfterE4, {{"e7e5", Points(5, 3)}}},
                           {AfterE5, {{"g1f3", Points(5, 3)}, {"f2f4", BOOK_KILLED}}}}));
        Play("e2e4 e7e5 g1f3 b8c6");
        const std::string before = WriteFen();
        LearnBook(result);
        EXPECT_EQ(WriteFen(), before) << "the game goes on where it was";
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        EXPECT_EQ(Statistics("e2e4"), expected);
        EXPECT_EQ(Statistics("g1f3"), expected);
        EXPECT_EQ(Statistics("e7e5"), Points(5, 3)) << "the opponent's";
        EXPECT_EQ(Statistics("d2d4"), 0);
        EXPECT_EQ(Statistics("f2f4"), BOOK_KILLED);
        LearnBook(result);
        EXPECT_EQ(Statistics("e2e4"), expected) << "a second time";
    }
}

TEST_F(BookLearning, LeavesABookAloneThatAnotherEngineKeepsLocked) {
    Open(BookBytes(1, {{Start, {{"e2e4", 0}}}}));
    Play("e2e4 e7e5");
    FILE* const other = std::fopen("test.tqn", "rb+");
    ASSERT_TRUE(LockAgainstOthers(other));
    LearnBook(BOOK_WON);
    UnlockForOthers(other);
    EXPECT_EQ(Statistics("e2e4"), 0);
    BookLearned = false;
    LearnBook(BOOK_WON);
    EXPECT_EQ(Statistics("e2e4"), Points(2, 0));
    EXPECT_TRUE(LockAgainstOthers(other)) << "released again";
    std::fclose(other);
}

TEST_F(BookLearning, ScalesTheNodeWhenAByteIsFull) {
    const struct {
        uint16_t before;
        BookResult result;
        uint16_t after;
    } cases[] = {
        {Points(252, 10), BOOK_WON, Points(254, 10)}, // still fits
        {Points(253, 10), BOOK_WON, Points(170, 6)},
        {Points(0, 254), BOOK_LOST, Points(0, 170)},
        {Points(10, 254), BOOK_DRAWN, Points(7, 170)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before);
        const bool scaled = c.after != Points(254, 10);
        Open(BookBytes(
            1, {{Start, {{"d2d4", Points(100, 2)}, {"e2e4", c.before}, {"g2g4", BOOK_KILLED}}},
                {AfterE4, {{"e7e5", Points(100, 2)}}}}));
        Play("e2e4 e7e5");
        LearnBook(c.result);
        EXPECT_EQ(Statistics("e2e4"), c.after);
        EXPECT_EQ(Statistics("d2d4"), scaled ? Points(66, 1) : Points(100, 2));
        EXPECT_EQ(Statistics("g2g4"), BOOK_KILLED);
        EXPECT_EQ(Statistics("e7e5"), Points(100, 2)) << "another node";
    }
}

TEST_F(BookLearning, LearnsFromScoresBeyondTheBoundOnly) {
    const struct {
        int score;
        bool on;
        uint16_t expected;
    } cases[] = {{400, true, 0},
                 {401, true, Points(2, 0)},
                 {-400, true, 0},
                 {-401, true, Points(0, 2)},
                 {900, false, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.score);
        Open(BookBytes(1, {{Start, {{"e2e4", 0}}}}));
        Play("e2e4 e7e5");
        Book.UseBookLearning = c.on;
        LearnBookFromScore(c.score);
        EXPECT_EQ(Statistics("e2e4"), c.expected);
    }
}

TEST_F(BookLearning, AnnouncedDrawsAndMatesAreDraws) {
    Open(BookBytes(1, {{Start, {{"g1f3", 0}, {"f2f3", 0}}}}));
    Play("g1f3 g8f6 f3g1 f6g8 g1f3 g8f6 f3g1 f6g8");
    EXPECT_EQ(Printed([] {
                  FindDraws();
                  LearnAnnouncedDraw();
                  AnnounceDraws();
                  LearnAnnouncedDraw();
              }),
              "");
    EXPECT_EQ(Statistics("g1f3"), 0) << "found, but not announced in time";
    Printed([] {
        FindDraws();
        AnnounceDraws();
    });
    EXPECT_EQ(Statistics("g1f3"), 0) << "announced in the middle of a search";
    const SearchHost host = Host;
    InstallSearchHost();
    Host.withholdMove();
    Host = host;
    EXPECT_EQ(Statistics("g1f3"), Points(2, 2)) << "played twice in this game";
    BookLearned = false;
    LearnAnnouncedDraw();
    EXPECT_EQ(Statistics("g1f3"), Points(2, 2)) << "once";
    Play("f2f3 e7e5 g2g4 d8h4");
    Printed([] { AnnounceGameOver(); });
    EXPECT_EQ(Statistics("f2f3"), Points(1, 1));
}

// A settings file may switch learning on again behind the book's name.
TEST_F(BookLearning, AVersion0BookStaysAsItIs) {
    const std::string bytes = BookBytes(0, {{Start, {{"d2d4", 7}, {"e2e4", 7}, {"c2c4", 7}}}});
    Open(bytes);
    Book.UseBookLearning = true;
    Play("e2e4 e7e5");
    LearnBook(BOOK_LOST);
    EXPECT_EQ(FileText("test.tqn"), bytes);
}

TEST_F(BookLearning, ABookThatMayOnlyBeReadStaysAsItIs) {
    const std::string bytes = BookBytes(1, {{Start, {{"e2e4", Points(1, 1)}}}});
    Open(bytes);
    std::filesystem::permissions("test.tqn", std::filesystem::perms(0444));
    const WithoutPrivileges nobody;
    testing::internal::CaptureStdout();
    OpenBook("test.tqn");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "1 nodes in openings book\n");
    Play("e2e4 e7e5");
    while (NextUnwritten() != nullptr) {
    }
    for (const bool first : {true, false}) {
        BookLearned = false;
        LearnBook(BOOK_WON);
        EXPECT_EQ(FileText("test.tqn"), bytes);
        const char* const told = NextUnwritten();
        EXPECT_EQ(told != nullptr, first);
    }
}

} // namespace
