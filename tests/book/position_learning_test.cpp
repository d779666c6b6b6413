#include "book/position_learning.h"

#include "board/recompute.h"
#include "book/book_settings.h"
#include "book/learning_file.h"
#include "front/game/game.h"
#include "support/board_test.h"
#include "support/scratch.h"

namespace {

class PositionLearningTest : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        Book = {};
        Book.PositionLearning = true;
        ForgetNotedPositions();
        OpenLearningFile("Learn.tq1");
    }
    void TearDown() override {
        CloseLearningFile();
        Book = {};
        ForgetNotedPositions();
        BoardTest::TearDown();
    }
    // A whole move of the game: the engine's, after a search with that score, and the reply.
    void EngineMoves(const char* move, int32_t score, int32_t depth = 9, bool fromBook = false) {
        searches.push_back({score, PosKey, fromBook});
        PlayMove(MoveFromText(move));
        LearnFromSearches(searches, depth);
    }
    static void Reply(const char* move) {
        PlayMove(MoveFromText(move));
    }
    static size_t EntriesInFile() {
        return (FileText("Learn.tq1").size() - 262167) / 24;
    }
    // A game in which White's score falls from `first` to `second` and then below the point where
    // the game counts as going wrong. Returns how many positions were learned.
    size_t PlayLosingGame(int32_t first, int32_t second, int32_t depth, bool book = false) {
        searches.clear();
        SetStartPosition();
        ForgetNotedPositions();
        const size_t before = EntriesInFile();
        EngineMoves("e2e4", first, 9, book);
        Reply("e7e5");
        EngineMoves("d1h5", second, depth);
        Reply("b8c6");
        EngineMoves("h5f7", -401);
        return EntriesInFile() - before;
    }

    ScratchDirectory directory;
    std::vector<SearchRecord> searches;
};

TEST_F(PositionLearningTest, NotesAFallAndWritesItWhenTheGameGoesWrong) {
    constexpr struct {
        const char* name;
        int32_t first, second, depth;
        bool book;
        size_t learned;
    } cases[] = {
        {"a fall of 40 is none", 10, -30, 9, false, 0},
        {"the older search was bad already", -180, -300, 9, false, 0},
        {"the newer one is still good", 900, 520, 9, false, 0},
        {"too shallow", 10, -31, 6, false, 0},
        {"the older move came from the book", 10, -31, 9, true, 0},
        {"noted", 10, -31, 7, false, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(PlayLosingGame(c.first, c.second, c.depth, c.book), c.learned);
    }
    EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
    SetStartPosition();
    LearnedPosition found;
    ASSERT_NE(LookUpLearned(LearningKeysOf(PosKey), found), 0u);
    EXPECT_EQ(found.depth, 7 * 60 + 30);
    EXPECT_EQ(found.evaluation, -31);
    EXPECT_EQ(MoveText(found.move), "e2e4");
    int32_t evaluation = 0;
    EXPECT_TRUE(LearnedEvaluation(450, evaluation));
    EXPECT_EQ(evaluation, -31);
    EXPECT_FALSE(LearnedEvaluation(451, evaluation));
}

TEST_F(PositionLearningTest, DeeperKnowledgeReplacesAndIsLogged) {
    Book.LogLearningIntoFile = true;
    EXPECT_EQ(PlayLosingGame(10, -31, 7), 1u);
    EXPECT_EQ(PlayLosingGame(20, -60, 7), 0u);
    EXPECT_EQ(PlayLosingGame(20, -60, 8), 0u);
    SetStartPosition();
    int32_t evaluation = 0;
    EXPECT_TRUE(LearnedEvaluation(510, evaluation));
    EXPECT_EQ(evaluation, -60);
    const std::string log = FileText("learn.log");
    const std::string fen = "\tFEN = " + WriteFen() + "\n";
    // The count goes on through the whole run, so the test cannot know where it begins.
    const int first = std::stoi(log);
    EXPECT_EQ(log, std::to_string(first) +
                       "\tAdd: Depth = 450\tOldEvaluation = 10\tEvaluaton = -31" + fen +
                       std::to_string(first + 1) +
                       "\tRefresh: Depth = 510\tOldEvaluation = 20\tEvaluaton = -60" + fen);
}

TEST_F(PositionLearningTest, AGameThatHoldsForgetsTheFall) {
    EngineMoves("e2e4", 60);
    Reply("e7e5");
    EngineMoves("d1h5", 0); // falls
    Reply("b8c6");
    EngineMoves("h5e2", -9); // three searches of at least -9
    Reply("c6b8");
    EngineMoves("e2h5", -401);
    EXPECT_EQ(EntriesInFile(), 0u);
}

TEST_F(PositionLearningTest, OtherGamesAndMovesTakenBackAreNotMixedUp) {
    EngineMoves("e2e4", 60);
    Reply("e7e5");
    TakeBack(2);
    EngineMoves("d2d4", 0);
    Reply("d7d5");
    EngineMoves("c2c4", -500);
    Reply("d5c4");
    EngineMoves("e2e3", -500);
    EXPECT_EQ(EntriesInFile(), 1u) << "only the fall after 1. d4";
    SetStartPosition();
    LearnedPosition found;
    ASSERT_NE(LookUpLearned(LearningKeysOf(PosKey), found), 0u);
    EXPECT_EQ(MoveText(found.move), "d2d4");
}

TEST_F(PositionLearningTest, DamagedEvaluationsAreNotUsed) {
    AddLearned(LearningKeysOf(PosKey), {1000, INT32_MIN, NO_MOVE});
    int32_t evaluation = 7;
    EXPECT_FALSE(LearnedEvaluation(400, evaluation));
    EXPECT_EQ(evaluation, 7);
}

} // namespace
