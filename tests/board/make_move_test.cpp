#include "board/moves/make_move.h"

#include "board/recompute.h"
#include "support/board_test.h"

namespace {

class MakeMoveTest : public BoardTest {};

// What unmake takes from the record or must leave alone; the rest follows from the men.
struct Snapshot {
    std::string fen;
    int ply;
    int fiftyCount;
    int castleRights;
    int materialIndex;
    int kingSquare[2];
    uint64_t posKey;
    uint64_t pawnKey;

    bool operator==(const Snapshot&) const = default;
};

Snapshot TakeSnapshot() {
    return {WriteFen(),   Ply,           FiftyCount,
            CastleRights, MaterialIndex, {KingSquare[WHITE], KingSquare[BLACK]},
            PosKey,       PawnKey};
}

// Makes every pseudo-legal move, legal or not, and takes it back.
void TryEveryMove() {
    const Snapshot before = TakeSnapshot();
    for (const Move move : Generated(GenerateAll)) {
        const Colour us = SideToMove;
        ASSERT_EQ(MakeMove(move, true), ChangeSide(us));
        ASSERT_EQ(SideToMove, ChangeSide(us));
        ASSERT_EQ(FirstDifferenceFromRecomputation(), "") << MoveText(move) << " in " << before.fen;
        UnmakeMove();
        ASSERT_EQ(FirstDifferenceFromRecomputation(), "")
            << MoveText(move) << " taken back in " << before.fen;
        ASSERT_TRUE(TakeSnapshot() == before) << MoveText(move) << " taken back in " << before.fen;
    }
    if (InCheck(SideToMove))
        return;
    MakeNullMove();
    ASSERT_EQ(FirstDifferenceFromRecomputation(), "") << "null move in " << before.fen;
    UnmakeNullMove();
    ASSERT_TRUE(TakeSnapshot() == before) << "null move in " << before.fen;
}

} // namespace

TEST_F(MakeMoveTest, EveryValueAgreesWithARecomputation) {
    for (const TestPosition& position : VariedPositions()) {
        SCOPED_TRACE(position.name);
        LoadFen(position.fen);
        const size_t width = Generated(GenerateAll).size();
        WalkTree(width > 60 ? 1 : 2, [] { TryEveryMove(); });
        if (HasFailure())
            return;
    }
    WalkRandomGames(150, TryEveryMove);
}

TEST_F(MakeMoveTest, FiftyCountGrowsUntilAPawnMovesOrAManIsTaken) {
    LoadFen("r3k2r/4p3/8/8/8/8/8/R3K2R w KQkq -");
    Play("a1b1 a8b8");
    EXPECT_EQ(FiftyCount, 2);
    Play("e1g1");
    EXPECT_EQ(FiftyCount, 3);
    Play("e7e6");
    EXPECT_EQ(FiftyCount, 0);
    Play("f1f2 h8h2");
    EXPECT_EQ(FiftyCount, 2);
    Play("g1h2");
    EXPECT_EQ(FiftyCount, 0);
    UnmakeMove();
    EXPECT_EQ(FiftyCount, 2);
}

TEST_F(MakeMoveTest, UnsavedMoveIsTakenBackWithTheRecordOfTheMoveBefore) {
    LoadFen("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -");
    const Snapshot before = TakeSnapshot();
    const std::vector<Move> moves = Generated(GenerateAll);
    MakeMove(moves[0], true);
    UnmakeMove();
    for (const Move move : moves) {
        MakeMove(move, false);
        ASSERT_EQ(LastMove(), move);
        ASSERT_EQ(FirstDifferenceFromRecomputation(), "") << MoveText(move);
        UnmakeMove();
        ASSERT_EQ(FirstDifferenceFromRecomputation(), "") << MoveText(move);
        ASSERT_TRUE(TakeSnapshot() == before) << MoveText(move);
    }
}
