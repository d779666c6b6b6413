// Several best moves, each with a score of its own.

#include <algorithm>
#include <vector>

#include "board/fen.h"
#include "search/host.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/tree/driver.h"
#include "support/search_test.h"

namespace {

constinit int Reports = 0;
constinit int UnorderedReports = 0;

class MultiPv : public SearchingTest {
protected:
    void SetUp() override {
        SearchingTest::SetUp();
        Reports = UnorderedReports = 0;
        Host.printVariations = [](BoundType bound, int) {
            Reports++;
            if (bound == BOUND_EXACT && !std::is_sorted(Root.moves, Root.moves + LineCount(),
                                                        [](const RootEntry& a, const RootEntry& b) {
                                                            return a.score > b.score;
                                                        }))
                UnorderedReports++;
        };
    }
    void TearDown() override {
        Host.printVariations = [](BoundType, int) {};
        SearchingTest::TearDown();
    }

    struct Line {
        Move move;
        int32_t score;
    };
    // The best moves of a search from a clear memory.
    static std::vector<Line> Best(const char* fen, int count, int depth) {
        ForgetSearches();
        LoadFen(fen);
        SearchOptions.MultiPV = count;
        SearchFixedDepth(depth);
        std::vector<Line> lines;
        for (int i = 0; i < LineCount(); i++)
            lines.push_back({RootMove(i), Root.moves[i].score});
        return lines;
    }
    // The score of a move that is searched alone.
    static int32_t ScoreAlone(const char* fen, Move move, int depth) {
        ForgetSearches();
        LoadFen(fen);
        Limits.SearchMoves[0] = move;
        Limits.SearchMoveCount = 1;
        Limits.Analysing = true;
        SearchFixedDepth(depth);
        return Root.moves[0].score;
    }
};

// Some moves win something or lose it, so that the scores lie apart.
constexpr const char* Positions[] = {
    "3r2k1/5ppp/8/q2n4/8/2N5/5PPP/3RR1K1 w - - 0 1",
    "r1bq1rk1/ppp2ppp/2n5/3pp3/1bP5/2N1PN2/PP1nBPPP/R1BQ1RK1 w - - 0 1",
    // The captures come first and all but the best of them lose.
    "r5k1/1p3pp1/p1p1p2p/3q4/3P1Q2/2N1R2P/PP3PP1/6K1 w - - 0 1",
    "8/2k5/8/1P1p4/3Pp3/4K3/8/8 w - - 0 1",
};

TEST_F(MultiPv, TellsTheBestMovesInOrderWithTheScoresTheyHaveAlone) {
    for (const char* const fen : Positions) {
        SCOPED_TRACE(fen);
        const std::vector<Line> lines = Best(fen, 4, 7);
        ASSERT_EQ(lines.size(), 4U);
        for (size_t i = 0; i < lines.size(); i++) {
            for (size_t j = 0; j < i; j++) {
                EXPECT_NE(lines[i].move, lines[j].move);
                EXPECT_LE(lines[i].score, lines[j].score);
            }
            // What the table remembers from other moves may shift a score a little.
            EXPECT_NEAR(lines[i].score, ScoreAlone(fen, lines[i].move, 7), 60) << i;
        }
    }
    EXPECT_GT(Reports, 0);
    EXPECT_EQ(UnorderedReports, 0);
}

} // namespace
