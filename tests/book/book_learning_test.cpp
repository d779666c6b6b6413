#include "book/book_learning.h"

#include <filesystem>
#include <string>
#include <unistd.h>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/notation.h"
#include "board/position.h"
#include "board/recompute.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "front/game/adjudication.h"
#include "front/game/game.h"
#include "front/search_host.h"
#include "platform/file_lock.h"
#include "search/host.h"
#include "support/book_file.h"
#include "support/engine_setup.h"
#include "support/scratch.h"

namespace {

constexpr const char* Start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -";
constexpr const char* AfterE4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq -";
constexpr const char* AfterE5 = "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w KQkq -";

class BookLearning : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
        Book = {};
        BookLearned = false;
    }
    void TearDown() override {
        Open("");
        Book = {};
        BookLearned = false;
        SetStartPosition();
    }
    static void Open(const std::string& bytes) {
        WriteFileText("test.tqn", bytes);
        testing::internal::CaptureStdout();
        OpenBook("test.tqn");
        testing::internal::GetCapturedStdout();
    }
    static void Play(const std::string& moves) {
        SetStartPosition();
        for (size_t i = 0; i < moves.size(); i += 5)
            PlayMove(MoveFromText(moves.substr(i, 4)));
    }
    static int Statistics(const char* squares) {
        return StatisticsInBook(FileText("test.tqn"), squares);
    }

    ScratchDirectory directory;
};

TEST_F(BookLearning, CreditsTheMovesOfTheSideToMoveOnce) {
    struct Case {
        BookResult result;
        uint16_t expected;
    };
    for (const Case& c : {Case{BOOK_WON, Points(7, 3)}, Case{BOOK_LOST, Points(5, 5)},
                          Case{BOOK_DRAWN, Points(6, 4)}}) {
        SCOPED_TRACE(c.result);
        Open(BookBytes(1, {{Start, {{"d2d4", 0}, {"e2e4", Points(5, 3)}}},
                           {AfterE4, {{"e7e5", Points(5, 3)}}},
                           {AfterE5, {{"g1f3", Points(5, 3)}, {"f2f4", BOOK_KILLED}}}}));
        Play("e2e4 e7e5 g1f3 b8c6");
        BookLearned = false;
        const std::string before = WriteFen();
        LearnBook(c.result);
        EXPECT_EQ(WriteFen(), before) << "the game goes on where it was";
        EXPECT_EQ(Ply, 4);
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        EXPECT_EQ(Statistics("e2e4"), c.expected);
        EXPECT_EQ(Statistics("g1f3"), c.expected);
        EXPECT_EQ(Statistics("e7e5"), Points(5, 3)) << "the opponent's";
        EXPECT_EQ(Statistics("d2d4"), 0);
        EXPECT_EQ(Statistics("f2f4"), BOOK_KILLED);
        LearnBook(c.result);
        EXPECT_EQ(Statistics("e2e4"), c.expected) << "a second time";
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
    struct Case {
        const char* name;
        uint16_t before;
        BookResult result;
        uint16_t after;
    };
    const Case cases[] = {
        {"254 still fits", Points(252, 10), BOOK_WON, Points(254, 10)},
        {"255 does not", Points(253, 10), BOOK_WON, Points(170, 6)},
        {"the other byte", Points(0, 254), BOOK_LOST, Points(0, 170)},
        {"both bytes of a draw", Points(10, 254), BOOK_DRAWN, Points(7, 170)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const bool scaled = c.after != Points(254, 10);
        Open(BookBytes(1, {{Start,
                            {{"d2d4", Points(100, 2)},
                             {"e2e4", c.before},
                             {"g2g4", BOOK_KILLED},
                             {"c2c4", 0},
                             {"b2b3", Points(1, 1)}}},
                           {AfterE4, {{"e7e5", Points(100, 2)}}}}));
        Play("e2e4 e7e5");
        BookLearned = false;
        LearnBook(c.result);
        EXPECT_EQ(Statistics("e2e4"), c.after);
        EXPECT_EQ(Statistics("d2d4"), scaled ? Points(66, 1) : Points(100, 2));
        EXPECT_EQ(Statistics("b2b3"), scaled ? Points(0, 0) : Points(1, 1));
        EXPECT_EQ(Statistics("g2g4"), BOOK_KILLED);
        EXPECT_EQ(Statistics("c2c4"), 0);
        EXPECT_EQ(Statistics("e7e5"), Points(100, 2)) << "another node";
    }
}

TEST_F(BookLearning, LearnsFromScoresBeyondTheBoundOnly) {
    struct Case {
        const char* name;
        int score;
        bool on;
        uint16_t expected;
    };
    for (const Case& c :
         {Case{"at the bound", 400, true, 0}, Case{"beyond", 401, true, Points(2, 0)},
          Case{"lost, at the bound", -400, true, 0}, Case{"lost", -401, true, Points(0, 2)},
          Case{"switched off", 900, false, 0}}) {
        SCOPED_TRACE(c.name);
        Open(BookBytes(1, {{Start, {{"e2e4", 0}}}}));
        Play("e2e4 e7e5");
        BookLearned = false;
        Book.UseBookLearning = c.on;
        LearnBookFromScore(c.score);
        EXPECT_EQ(Statistics("e2e4"), c.expected);
        EXPECT_EQ(BookLearned, c.expected != 0);
    }
}

TEST_F(BookLearning, AnnouncedDrawsAndMatesAreDraws) {
    Open(BookBytes(1, {{Start, {{"g1f3", 0}}}}));
    Play("g1f3 g8f6 f3g1 f6g8 g1f3 g8f6 f3g1 f6g8");
    testing::internal::CaptureStdout();
    FindDraws();
    LearnAnnouncedDraw();
    AnnounceDraws();
    LearnAnnouncedDraw();
    EXPECT_EQ(Statistics("g1f3"), 0) << "found, but not announced in time";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    testing::internal::CaptureStdout();
    FindDraws();
    AnnounceDraws();
    EXPECT_EQ(Statistics("g1f3"), 0) << "announced in the middle of a search";
    const SearchHost host = Host;
    InstallSearchHost();
    Host.withholdMove();
    Host = host;
    EXPECT_EQ(Statistics("g1f3"), Points(2, 2)) << "played twice in this game";
    BookLearned = false;
    LearnAnnouncedDraw();
    EXPECT_EQ(Statistics("g1f3"), Points(2, 2)) << "once";
    testing::internal::GetCapturedStdout();
    Open(BookBytes(1, {{Start, {{"f2f3", 0}}}}));
    Play("f2f3 e7e5 g2g4 d8h4");
    testing::internal::CaptureStdout();
    AnnounceGameOver();
    testing::internal::GetCapturedStdout();
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
    WriteFileText("fixed.tqn", bytes);
    std::filesystem::permissions("fixed.tqn", std::filesystem::perms::owner_read);
    testing::internal::CaptureStdout();
    OpenBook("fixed.tqn");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "1 nodes in openings book\n");
    Play("e2e4 e7e5");
    LearnBook(BOOK_WON);
    // The administrator may write what nobody may.
    if (geteuid() != 0) {
        EXPECT_EQ(FileText("fixed.tqn"), bytes);
    }
    Open("");
}

} // namespace
