#include "search/search.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/make_move.h"
#include "board/position.h"
#include "board/order_tables.h"
#include "search/driver.h"
#include "search/hash_memory.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "support/engine_setup.h"

namespace {

static void ForgetSearches() {
    ClearAllHashTables();
    ClearHistory();
    ClearEvasionReplies();
    ClearCaptureStats();
    ClearPlyStates();
    ResetDriverState();
    ResetLimits();
}

class SearchTest : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
        ForgetSearches();
    }
    void TearDown() override {
        ForgetSearches();
        SetStartPosition();
    }
};

std::string MoveName(Move m) {
    std::string name;
    for (const int sq : {From(m), To(m)}) {
        name += char('a' + FileOf(sq));
        name += char('1' + RankOf(sq));
    }
    if (Promotion(m) != EMPTY)
        name += ".knp?rbq"[Promotion(m)];
    return name;
}

struct Problem {
    const char* fen;
    const char* move;
    int depth;
    int score;  // least score for the side to move
};

// Mate in n scores 32700 less the plies to it.
constexpr int MateIn(int moves) {
    return MATE - (2 * moves - 1);
}

constexpr Problem Mates[] = {
    {"6k1/5ppp/8/8/8/8/8/R6K w - - 0 1", "a1a8", 3, MateIn(1)},
    {"1r4k1/5ppp/8/8/8/8/r4PPP/6K1 b - - 0 1", "a2a1", 3, MateIn(1)},
    {"r1b2k1r/ppp1bppp/8/1B1Q4/5q2/2P5/PPP2PPP/R3R1K1 w - - 0 1", "d5d8", 6, MateIn(2)},
    {"4r1k1/pQ3pp1/7p/4q3/4r3/P7/1P2nPPP/2BR1R1K b - - 0 1", "e5h2", 6, MateIn(2)},
    {"r5rk/5p1p/5R2/4B3/8/8/7P/7K w - - 0 1", "f6a6", 8, MateIn(3)},
    {"2r3k1/p4p2/3Rp2p/1p2P1pK/8/1P4P1/P3Q2P/1q6 b - - 0 1", "b1g6", 8, MateIn(3)},
    {"r1bqr3/ppp1B1kp/1b4p1/n2B4/3PQ1P1/2P5/P4P2/RN4K1 w - - 0 1", "e4e5", 10, MateIn(4)},
    {"1r2k1r1/pbppnp1p/1b3P2/8/Q7/B1PB1q2/P4PPP/3R2K1 w - - 0 1", "a4d7", 10, MateIn(4)},
};

constexpr Problem Tactics[] = {
    {"4k3/8/8/3q4/8/4N2P/8/4K3 w - - 0 1", "e3d5", 4, 300},
    {"r3k3/8/8/1N6/8/7P/8/4K3 w q - 0 1", "b5c7", 6, 300},
    {"8/P7/8/8/8/8/k6K/8 w - - 0 1", "a7a8q", 4, 700},
    {"3r2k1/5ppp/8/8/8/8/5PPP/3RR1K1 w - - 0 1", "d1d8", 6, 400},
    {"2rr3k/pp3pp1/1nnqbN1p/3pN3/2pP4/2P3Q1/PPB4P/R4RK1 w - - 0 1", "g3g6", 8, 300},
};

TEST_F(SearchTest, FindsMatesAtAFixedDepth) {
    for (const Problem& p : Mates) {
        SCOPED_TRACE(p.fen);
        LoadFen(p.fen);
        ForgetSearches();
        const Move best = SearchFixedDepth(p.depth);
        EXPECT_EQ(MoveName(best), p.move);
        EXPECT_EQ(RootScores[0], p.score);
    }
}

TEST_F(SearchTest, SolvesSimpleTacticsAtAFixedDepth) {
    for (const Problem& p : Tactics) {
        SCOPED_TRACE(p.fen);
        LoadFen(p.fen);
        ForgetSearches();
        EXPECT_EQ(MoveName(SearchFixedDepth(p.depth)), p.move);
        EXPECT_GE(RootScores[0], p.score);
    }
}

} // namespace
