#include "front/commands/parameter_commands.h"

#include "board/piece_square.h"
#include "board/recompute.h"
#include "eval/eval_cache.h"
#include "eval/evaluate.h"
#include "eval/parameters/values_file.h"
#include "front/game/game.h"
#include "search/hash_memory.h"
#include "search/state.h"
#include "support/board_test.h"
#include "support/scratch.h"

namespace {

class Reload : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        AllocateHashTables();
    }
    void TearDown() override {
        FreeHashTables();
        BoardTest::TearDown();
    }
    ScratchDirectory directory;
    ScratchParameters parameters;
};

// A file with other tables and a lasting advantage for whoever has more minor pieces.
void WriteOtherValues() {
    const EvalParameters before = Params;
    Params.KnightEnding.fill(-75);
    Params.PawnMiddlegame[28] += 33;
    Params.KingMiddlegame.fill(12);
    Params.MinorUp = 50;
    ASSERT_TRUE(WriteParameters());
    Params = before;
}

} // namespace

TEST_F(Reload, CountsTheSumsOfTheWholeGameAnew) {
    std::mt19937 random(5);
    while (Ply < 60) {
        const std::vector<Move> moves = PlayableMoves();
        PlayMove(moves[random() % moves.size()]);
    }
    WriteOtherValues();
    const uint64_t key = PosKey;
    const int32_t quietPlies = FiftyCount;
    ReloadValues({});
    EXPECT_EQ(60, Ply);
    EXPECT_EQ(key, PosKey);
    EXPECT_EQ(quietPlies, FiftyCount);
    EXPECT_EQ(-75, PstB[KNIGHT][WHITE][0]);
    while (Ply > SetupPly) {
        ASSERT_EQ("", FirstDifferenceFromRecomputation()) << Ply;
        UnmakeMove();
    }
    EXPECT_EQ("", FirstDifferenceFromRecomputation());
}

TEST_F(Reload, LeavesNoScoreOfTheOldValues) {
    SetUpFen("4k3/2n5/8/8/8/8/3PPP2/4K3 b - -");
    const int32_t before = EvaluateCached();
    HashStore(ONE_PLY, NO_MOVE, before, BOUND_EXACT, false, 0);
    ASSERT_EQ(before, EvaluateCached());
    WriteOtherValues();
    ReloadValues({});
    const int32_t full = Evaluate();
    EXPECT_NE(before, full);
    EXPECT_EQ(full, EvaluateCached());
    EXPECT_FALSE(HashProbe().found);
}

TEST_F(Reload, WithoutAFileForgetsTheImbalanceOnly) {
    Params.MinorUp = 50;
    Params.OpenFileShelter = 17;
    EXPECT_EQ("Error loading values.txt\n", Printed([] { ReloadValues({}); }));
    EXPECT_EQ(0, Params.MinorUp);
    EXPECT_EQ(17, Params.OpenFileShelter);
}
