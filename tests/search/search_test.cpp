#include "search/tree/search.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/notation.h"
#include "board/position.h"
#include "search/hash_memory.h"
#include "search/root.h"
#include "search/state.h"
#include "search/tree/driver.h"
#include "support/search_test.h"

namespace {

class SearchTest : public SearchingTest {};

struct Problem {
    const char* fen;
    const char* move; // nullptr where several mate in as many moves
    int depth;
    int score;
};

// Mate in n scores 32700 less the plies to it.
constexpr int MateIn(int moves) {
    return MATE - (2 * moves - 1);
}

constexpr Problem Mates[] = {
    {"6k1/5ppp/8/8/8/8/8/R6K w - - 0 1", "a1a8", 3, MateIn(1)},
    {"r1b2k1r/ppp1bppp/8/1B1Q4/5q2/2P5/PPP2PPP/R3R1K1 w - - 0 1", "d5d8", 6, MateIn(2)},
    {"r5rk/5p1p/5R2/4B3/8/8/7P/7K w - - 0 1", "f6a6", 8, MateIn(3)},
    {"2r3k1/p4p2/3Rp2p/1p2P1pK/8/1P4P1/P3Q2P/1q6 b - - 0 1", "b1g6", 8, MateIn(3)},
    {"r1bqr3/ppp1B1kp/1b4p1/n2B4/3PQ1P1/2P5/P4P2/RN4K1 w - - 0 1", "e4e5", 10, MateIn(4)},
    {"1r2k1r1/pbppnp1p/1b3P2/8/Q7/B1PB1q2/P4PPP/3R2K1 w - - 0 1", "a4d7", 10, MateIn(4)},
    {"8/8/3k4/1R6/8/8/R7/4K3 w - - 0 1", nullptr, 12, MateIn(5)},
};

TEST_F(SearchTest, FindsMatesAtAFixedDepth) {
    for (const Problem& p : Mates) {
        SCOPED_TRACE(p.fen);
        ForgetSearches();
        LoadFen(p.fen);
        const Move best = SearchFixedDepth(p.depth);
        EXPECT_TRUE(p.move == nullptr || MoveText(best) == p.move) << MoveText(best);
        EXPECT_EQ(Root.moves[0].score, p.score);
    }
}

// With alpha at the bound of mates no gain on the board counts, and a quiet move left out for want
// of one would make the bound look like a score.
TEST_F(SearchTest, NeverTakesTheBoundOfMatesForAScore) {
    for (int depth = 3; depth <= 8; depth++) {
        ForgetSearches();
        LoadFen("3qk3/8/8/8/8/4P3/3R4/3QK3 w - - 0 1");
        SearchFixedDepth(depth);
        EXPECT_NE(Root.moves[0].score, MATE_BOUND) << depth;
    }
    EXPECT_EQ(Root.moves[0].score, MateIn(4));
}

// A search of the position a move before a known mate counts that mate from where it stands.
TEST_F(SearchTest, CountsAMateThatAnEarlierSearchHasFound) {
    LoadFen("5r1k/6pp/7N/8/2Q5/8/5PPP/6K1 w - - 0 1");
    SearchFixedDepth(8);
    EXPECT_EQ(Root.moves[0].score, MateIn(2));
    LoadFen("5rk1/5Npp/8/8/2Q5/8/5PPP/6K1 w - - 0 1");
    SearchFixedDepth(9);
    EXPECT_EQ(Root.moves[0].score, MateIn(3));
}

TEST_F(SearchTest, SearchesWithoutATableToTheSameMates) {
    const int32_t count = TranspositionCount;
    ResizeHash(0);
    for (const Problem& p : Mates) {
        SCOPED_TRACE(p.fen);
        if (p.depth > 8)
            continue;
        ForgetSearches();
        LoadFen(p.fen);
        SearchFixedDepth(p.depth);
        EXPECT_EQ(Root.moves[0].score, p.score);
    }
    TranspositionCount = count;
    AllocateHashTables();
}

TEST_F(SearchTest, SeesDrawsByTheRules) {
    // A queen up, but the hundredth quiet ply is near; lone men that cannot win.
    for (const char* const fen :
         {"8/8/8/5k2/8/8/8/QK6 w - - 0 1", "8/8/4k3/8/8/3B4/4K3/8 w - - 0 1",
          "k7/8/8/P7/8/8/8/K7 b - - 0 1"}) {
        SCOPED_TRACE(fen);
        ForgetSearches();
        LoadFen(fen);
        const bool fiftyMoves = PieceCount[QUEEN][WHITE] > 0;
        FiftyCount = fiftyMoves ? 99 : 0;
        SearchFixedDepth(fiftyMoves ? 5 : 14);
        EXPECT_LT(std::abs(Root.moves[0].score), fiftyMoves ? 1 : 200);
    }
}

TEST_F(SearchTest, CountsARepetitionOfTheGameAsADraw) {
    // White is lost but for a perpetual: the king shuffles and the queen checks.
    LoadFen("6k1/6p1/8/6KQ/1r6/q2b4/8/8 w - - 0 1");
    SearchFixedDepth(9);
    EXPECT_EQ(Root.moves[0].score, 0);
}

TEST_F(SearchTest, SearchesPositionsWithoutKingsOrWithTheEnemyInCheck) {
    for (const char* const fen :
         {"8/8/8/8/8/8/8/8 w - - 0 1", "8/pppppppp/8/8/8/8/PPPPPPPP/8 w - - 0 1",
          "4k3/8/8/8/8/8/8/4RK2 w - - 0 1", "kkk5/8/8/8/8/8/8/5KKK b - - 0 1",
          "qqqqkqqq/8/8/8/8/8/8/QQQQKQQQ w - - 0 1", "pppppppp/8/8/K7/8/7k/8/PPPPPPPP w - - 0 1"}) {
        SCOPED_TRACE(fen);
        ForgetSearches();
        LoadFen(fen);
        SearchFixedDepth(3);
        EXPECT_EQ(Running.SearchPly, 0);
        EXPECT_EQ(Ply, 0);
    }
}

} // namespace
