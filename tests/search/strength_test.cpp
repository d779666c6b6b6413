#include "search/strength.h"

#include <set>
#include <string>

#include "board/fen.h"
#include "board/notation.h"
#include "book/book_learning.h"
#include "platform/runtime_rand.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/tree/driver.h"
#include "support/board_test.h"
#include "support/search_test.h"

namespace {

class StrengthTest : public SearchingTest {
protected:
    void TearDown() override {
        PlayAtFullStrength();
        BookLearned = false;
        SearchingTest::TearDown();
    }
    // The moves that a level plays in a position when chance falls in many ways.
    static std::set<std::string> MovesPlayed(const char* fen) {
        std::set<std::string> moves;
        for (uint32_t seed = 0; seed < 100; seed++) {
            LoadFen(fen);
            SeedRand(seed * 7919);
            EXPECT_TRUE(Think());
            moves.insert(MoveText(Past.BestMove));
        }
        return moves;
    }
};

TEST_F(StrengthTest, EveryLevelIsAllowedMoreThanTheOneBelow) {
    PlayAtLevel(-5);
    EXPECT_EQ(Strength.Elo, LEAST_ELO);
    Allowance below = AllowanceOfLevel();
    for (int32_t elo = LEAST_ELO + 25; elo <= MOST_ELO; elo += 25) {
        SCOPED_TRACE(elo);
        PlayAtLevel(elo);
        const Allowance level = AllowanceOfLevel();
        EXPECT_TRUE(level.nodes > below.nodes || level.slips < below.slips);
        EXPECT_GE(level.nodes, below.nodes);
        EXPECT_LE(level.slips, below.slips);
        EXPECT_LE(level.slipBound, below.slipBound);
        EXPECT_GE(level.bookMoves, below.bookMoves);
        below = level;
    }
    EXPECT_EQ(below.slips, 0);
}

TEST_F(StrengthTest, HoldsSearchesOfTheGameAndNoOthers) {
    PlayAtLevel(2000);
    const int32_t allowed = AllowanceOfLevel().nodes;
    const int32_t most = allowed + 1000;
    Limits.DepthLimit = 12;
    ASSERT_TRUE(Think());
    EXPECT_GE(Running.NodeCount, allowed);
    EXPECT_LT(Running.NodeCount, most);
    SetStartPosition();
    EXPECT_NE(SearchFixedDepth(12), NO_MOVE);
    EXPECT_GT(Running.NodeCount, most);
    LoadFen("r1bqkbnr/pp1p1ppp/2n5/1N2p3/4P3/8/PPP2PPP/RNBQKB1R b KQkq - 1 5");
    Limits.Analysing = true;
    EXPECT_FALSE(Think());
    EXPECT_GT(Running.NodeCount, most);
    Limits.Analysing = false;
    // What they have found does not help the level.
    ASSERT_TRUE(Think());
    EXPECT_LT(Running.IterationDepth, 9);
}

TEST_F(StrengthTest, SlipsBecomeMovesThatLookGood) {
    PlayAtLevel(LEAST_ELO);
    EXPECT_GT(MovesPlayed("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1").size(), 5u);
    // The best move alone keeps the queen, or mates.
    EXPECT_EQ(MovesPlayed("4k3/8/8/3q4/8/8/3Q4/4K3 w - - 0 1"), std::set<std::string>{"d2d5"});
    EXPECT_EQ(MovesPlayed("6k1/5ppp/8/8/8/8/8/R6K w - - 0 1"), std::set<std::string>{"a1a8"});
    // A slip's score is the one that it seems to have, of which the rules of giving up know.
    EXPECT_EQ(Past.RecentSearchCount, SEARCH_RECORDS);
    EXPECT_TRUE(BookLearned) << "the game may still teach the book";
    PlayAtLevel(MOST_ELO);
    EXPECT_EQ(Past.RecentSearchCount, 0) << "scores of another player count";
}

} // namespace
