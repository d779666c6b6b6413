#include "board/moves/generate.h"

#include "support/board_test.h"

namespace {

class CaptureScoreTest : public BoardTest {};

struct Case {
    const char* name;
    const char* fen;
    const char* move;
    int score;
};

} // namespace

TEST_F(CaptureScoreTest, FollowsGainAndSafety) {
    constexpr Case cases[] = {
        {"queen takes a guarded knight", "4k3/8/2p5/3n4/8/8/8/3QK3 w - -", "d1d5", -125900},
        {"rook takes a guarded queen", "4k3/8/2p5/3q4/8/8/8/3RK3 w - -", "d1d5", 108500},
        {"en passant", "4k3/2p5/8/3pP3/8/8/8/4K3 w - d5", "e5d6", 100901},
        {"king takes a guarded pawn", "4k3/8/8/8/8/3p4/4p3/4K3 w - -", "e1e2", -127950},
        {"free queen promotion", "8/P6k/8/8/8/8/8/4K3 w - -", "a7a8q", 107900},
        {"lost queen promotion", "7r/P5k1/8/8/8/8/8/4K3 w - -", "a7a8q", -128100},
        {"queen promotion with capture", "1n5k/P7/8/8/8/8/8/4K3 w - -", "a7b8q", 110900},
        {"rook promotion with capture", "1n5k/P7/8/8/8/8/8/4K3 w - -", "a7b8r", -125100},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        const Move move = FindMove(c.move);
        ASSERT_NE(move, NO_MOVE);
        EXPECT_EQ(CaptureScore(move), c.score);
    }
}

TEST_F(CaptureScoreTest, LosingCapturesAreLiftedByTheirSuccess) {
    struct Ratio {
        int tries;
        int successes;
        int bonus;
    };
    constexpr Ratio ratios[] = {
        {8, 8, -128000}, {9, 0, -128000}, {16, 1, -64000}, {16, 2, -32000}, {10, 2, 0},
        {9, 4, 40000},   {10, 5, 50000},  {64, 63, 50000}, {10, 10, 0},     {17, 1, -128000},
    };
    LoadFen("4k3/8/2p5/3n4/8/8/8/3QK3 w - -");
    const Move move = FindMove("d1d5");
    constexpr int slot = 14551;
    for (const Ratio& r : ratios) {
        SCOPED_TRACE(std::to_string(r.successes) + " of " + std::to_string(r.tries));
        CaptureStats.stamp[slot] = HashAge;
        CaptureStats.tries[slot] = r.tries;
        CaptureStats.successes[slot] = r.successes;
        EXPECT_EQ(CaptureScore(move), 3000 - 900 + r.bonus);
    }
}

TEST_F(CaptureScoreTest, StatisticsOfAnEarlierSearchAreForgotten) {
    LoadFen("4k3/8/2p5/3n4/8/8/8/3QK3 w - -");
    const Move move = FindMove("d1d5");
    constexpr int slot = 14551;
    for (const int age : {0, -1, 32767}) {
        HashAge = int16_t(age);
        CaptureStats.stamp[slot] = 7;
        CaptureStats.tries[slot] = 16;
        CaptureStats.successes[slot] = 8;
        EXPECT_EQ(CaptureScore(move), 2100 - 128000);
        EXPECT_EQ(CaptureStats.stamp[slot], age);
        EXPECT_EQ(CaptureStats.tries[slot], 0);
        EXPECT_EQ(CaptureStats.successes[slot], 0);
    }
}

TEST_F(CaptureScoreTest, UnderpromotionsDoNotProfitFromStatistics) {
    LoadFen("1n5k/P7/8/8/8/8/8/4K3 w - -");
    const Move move = FindMove("a7b8n");
    const int slot = 2 * 8 + 3 + Sq("b8") * 64 + Sq("a7") * 4096;
    CaptureStats.stamp[slot] = HashAge;
    CaptureStats.tries[slot] = 16;
    CaptureStats.successes[slot] = 8;
    EXPECT_EQ(CaptureScore(move), 2900 - 128000);
}
