#include "board/moves/generate.h"

#include "support/board_test.h"

namespace {

class CaptureScoreTest : public BoardTest {};

} // namespace

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
