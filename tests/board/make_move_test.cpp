#include "board/make_move.h"

#include "board_moves.h"
#include "board/recompute.h"

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

TEST_F(MakeMoveTest, EveryValueAgreesWithARecomputationThroughoutMoveTrees) {
    for (const TestPosition& position : VariedPositions()) {
        SCOPED_TRACE(position.name);
        LoadFen(position.fen);
        const size_t width = Generated(GenerateAll).size();
        WalkTree(width > 60 ? 1 : 2, [] { TryEveryMove(); });
        if (HasFailure())
            return;
    }
}

TEST_F(MakeMoveTest, EveryValueAgreesWithARecomputationThroughoutRandomGames) {
    WalkRandomGames(150, [] { TryEveryMove(); });
}

TEST_F(MakeMoveTest, CastlingMovesTheRookAsWell) {
    struct Case {
        const char* move;
        const char* written;
    };
    constexpr Case cases[] = {
        {"e1g1", "r3k2r/8/8/8/8/8/8/R4RK1 b kq - 1 "},
        {"e1c1", "r3k2r/8/8/8/8/8/8/2KR3R b kq - 1 "},
        {"e8g8", "r4rk1/8/8/8/8/8/8/R3K2R w KQ - 1 "},
        {"e8c8", "2kr3r/8/8/8/8/8/8/R3K2R w KQ - 1 "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.move);
        LoadFen(c.move[1] == '1' ? "r3k2r/8/8/8/8/8/8/R3K2R w KQkq -"
                                 : "r3k2r/8/8/8/8/8/8/R3K2R b KQkq -");
        Play(c.move);
        EXPECT_TRUE(WriteFen().starts_with(c.written)) << WriteFen();
        EXPECT_EQ(FiftyCount, 1);
    }
}

TEST_F(MakeMoveTest, CastlingRightsGoWithKingRookOrRookTaken) {
    struct Case {
        const char* name;
        const char* fen;
        const char* moves;
        int rights;
    };
    constexpr Case cases[] = {
        {"king moves", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq -", "e1e2", 12},
        {"king has been away", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq -", "e1e2 a8b8 e2e1 b8a8", 4},
        {"short rook moves", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq -", "h1g1", 14},
        {"long rook moves", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq -", "a1b1", 13},
        {"Black castles", "r3k2r/8/8/8/8/8/8/R3K2R b KQkq -", "e8c8", 3},
        {"rook takes rook", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq -", "h1h8", 10},
        {"bishop takes a rook that never moved", "r3k2r/8/8/8/8/8/1B6/R3K2R w KQkq -", "b2h8", 11},
        {"promotion takes it", "r3k2r/1P6/8/8/8/8/8/4K3 w kq -", "b7a8n", 4},
        {"another man leaves the corner", "r3k2r/8/8/8/8/8/8/R3K3 w Qkq -", "a1a8 h8h1 e1e2", 0},
        {"another man is taken in the corner", "4k2r/8/8/8/8/8/6b1/R3K2N b Qk -", "g2h1", 6},
        {"nothing to do with it", "r3k2r/8/8/8/8/8/4N3/R3K2R w KQkq -", "e2d4", 15},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        const int before = CastleRights;
        Play(c.moves);
        EXPECT_EQ(CastleRights, c.rights);
        while (Ply > 0)
            UnmakeMove();
        EXPECT_EQ(CastleRights, before);
    }
}

TEST_F(MakeMoveTest, EnPassantTakesThePawnBesideTheCaptor) {
    LoadFen("4k3/8/8/3pP3/8/8/8/4K3 w - d5");
    FiftyCount = 9;
    const int indexBefore = MaterialIndex;
    MakeMove(MoveWord(Sq("e5"), Sq("d6"), PAWN), true);
    EXPECT_TRUE(WriteFen().starts_with("4k3/8/3P4/8/8/8/8/4K3 b - ")) << WriteFen();
    EXPECT_EQ(Material[BLACK], 0);
    EXPECT_EQ(MenCount, 3);
    EXPECT_EQ(FiftyCount, 0);
    EXPECT_EQ(MaterialIndex, indexBefore - 59049);
    UnmakeMove();
    EXPECT_EQ(FiftyCount, 9);
    EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
}

TEST_F(MakeMoveTest, PromotionTradesThePawnForThePiece) {
    struct Case {
        const char* move;
        int material;
        int phase;
        int heavy;
        int minor;
        int indexWhite; // change of the signature
        int indexBlack;
    };
    constexpr Case cases[] = {
        {"q", 800, 9, 2, 0, -6560, -59046},
        {"r", 400, 5, 1, 0, -6552, -59022},
        {"n", 200, 3, 0, 1, -5832, -56862},
        {"b", 200, 3, 0, 1, -6480, -58806},
    };
    for (const Case& c : cases) {
        for (const Colour us : {WHITE, BLACK}) {
            SCOPED_TRACE(std::string(c.move) + (us == WHITE ? " White" : " Black"));
            LoadFen(us == WHITE ? "7k/P7/8/8/8/8/8/7K w - -" : "7k/8/8/8/8/8/p7/7K b - -");
            const int index = MaterialIndex;
            Play((us == WHITE ? "a7a8" : "a2a1") + std::string(c.move));
            EXPECT_EQ(Material[us], 100 + c.material);
            EXPECT_EQ(PhaseUnits[us], c.phase);
            EXPECT_EQ(HeavyCount[us], c.heavy);
            EXPECT_EQ(MinorCount[us], c.minor);
            EXPECT_EQ(MaterialIndex - index, us == WHITE ? c.indexWhite : c.indexBlack);
            EXPECT_EQ(PawnKey, 0u);
            EXPECT_EQ(FiftyCount, 0);
        }
    }
}

TEST_F(MakeMoveTest, CapturingOneOfThreeQueensMakesTheSignatureValidAgain) {
    struct Case {
        const char* name;
        const char* fen;
        const char* promotes;
        const char* takes;
    };
    constexpr Case cases[] = {
        {"White", "r3k3/6P1/8/8/8/8/8/QQ2K3 w - -", "g7g8q e8d7", "a1a8 d7e6 e1e2 e6f6 b1b6 f6f5"},
        {"queen taken", "r3k3/6P1/8/8/8/8/8/QQ2K3 w - -", "g7g8q e8d7", "e1e2 a8a1"},
        {"Black", "qq2k3/8/8/8/8/8/6p1/R3K3 b Q -", "g2g1q e1d2", "e8e7 a1a8"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        const int index = MaterialIndex;
        Play(c.promotes);
        EXPECT_EQ(MaterialIndex, 531441);
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        Play(c.takes);
        const bool threeLeft = PieceCount[QUEEN][WHITE] == 3;
        EXPECT_EQ(MaterialIndex == 531441, threeLeft);
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        while (Ply > 0) {
            UnmakeMove();
            EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        }
        EXPECT_EQ(MaterialIndex, index);
    }
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

TEST_F(MakeMoveTest, KeyDependsOnThePlacementAlone) {
    const uint64_t start = PosKey;
    Play("g1f3 g8f6 f3g1 f6g8");
    EXPECT_EQ(PosKey, start);
    Play("h2h4 h7h5 h1h2 h8h7 h2h1 h7h8");
    LoadFen("rnbqkbnr/ppppppp1/8/7p/7P/8/PPPPPPP1/RNBQKBNR b - -");
    const uint64_t loaded = PosKey;
    const uint64_t pawns = PawnKey;
    SetStartPosition();
    Play("h2h4 h7h5");
    EXPECT_EQ(PosKey, loaded);
    EXPECT_EQ(PawnKey, pawns);
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
