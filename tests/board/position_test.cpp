#include "board/position.h"

#include "board_moves.h"
#include "board/recompute.h"

namespace {

class PositionTest : public BoardTest {};

} // namespace

TEST_F(PositionTest, StartPositionHasItsNumbers) {
    EXPECT_EQ(MaterialIndex, 531436);
    EXPECT_EQ(MenCount, 32);
    EXPECT_EQ(KingSquare[WHITE], 4);
    EXPECT_EQ(KingSquare[BLACK], 60);
    EXPECT_EQ(CastleRights, 15);
    EXPECT_EQ(FiftyCount, 0);
    EXPECT_EQ(Ply, 0);
    EXPECT_EQ(SideToMove, WHITE);
    for (const Colour c : {WHITE, BLACK}) {
        EXPECT_EQ(Material[c], 8 * 100 + 4 * 300 + 2 * 500 + 900);
        EXPECT_EQ(PhaseUnits[c], 4 * 3 + 2 * 5 + 9);
        EXPECT_EQ(HeavyCount[c], 4);
        EXPECT_EQ(MinorCount[c], 4);
        EXPECT_EQ(PieceCount[PAWN][c], 8);
        EXPECT_EQ(PieceCount[KING][c], 1);
    }
    // Both camps stand alike, so the sums of the men cancel.
    EXPECT_EQ(PstSumA, 0);
    EXPECT_EQ(PstSumB, 0);
    EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
}

TEST_F(PositionTest, BlackMenCountPositivelyInThePieceSquareSums) {
    ClearBoard();
    PlacePiece(Sq("d8"), BLACK, QUEEN);
    const int queenA = PstSumA;
    const int queenB = PstSumB;
    EXPECT_GT(queenA, 0);
    EXPECT_GT(queenB, 0);
    PlacePiece(Sq("d1"), WHITE, QUEEN);
    EXPECT_EQ(PstSumA, 0);
    EXPECT_EQ(PstSumB, 0);
    RemovePiece(Sq("d8"));
    EXPECT_EQ(PstSumA, -queenA);
    EXPECT_EQ(PstSumB, -queenB);
}

TEST_F(PositionTest, ThirdPieceOfAKindInvalidatesTheSignature) {
    for (const Colour c : {WHITE, BLACK}) {
        for (const Piece piece : {KNIGHT, ROOK, BISHOP, QUEEN}) {
            ClearBoard();
            PlacePiece(Sq("a1"), c, piece);
            PlacePiece(Sq("b4"), c, piece);
            const int two = MaterialIndex;
            EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
            PlacePiece(Sq("e5"), c, piece);
            EXPECT_EQ(MaterialIndex, 531441);
            EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
            PlacePiece(Sq("f5"), c, PAWN);
            EXPECT_EQ(MaterialIndex, 531441);
            RemovePiece(Sq("f5"));
            RemovePiece(Sq("b4"));
            EXPECT_EQ(MaterialIndex, two);
            EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        }
    }
}

TEST_F(PositionTest, FullestSignatureIsTheLargestValidOne) {
    LoadFen("qqrrbbnn/pppppppp/8/8/8/8/PPPPPPPP/QQRRBBNN w - -");
    EXPECT_EQ(MaterialIndex, 531440);
    PlacePiece(Sq("e4"), WHITE, KING);
    EXPECT_EQ(MaterialIndex, 531440);
}

TEST_F(PositionTest, TooManyPawnsAreReportedWhenTheSignatureIsRebuilt) {
    struct Case {
        const char* fen;
        int index;
        const char* printed;
    };
    constexpr Case cases[] = {
        {"4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3 w - -", 8 * 65610, ""},
        {"4k3/pppppppp/p7/8/8/8/8/4K3 w - -", 531441, ""},
        {"4k3/pppppppp/p7/8/8/8/P7/4K3 w - -", 538002, "Error when indexing material!\n"},
        {"QQQ1k3/pppppppp/pp6/8/8/8/8/4K3 w - -", 531441, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fen);
        LoadFen(c.fen);
        testing::internal::CaptureStdout();
        RecomputeMaterialIndex();
        EXPECT_EQ(testing::internal::GetCapturedStdout(), c.printed);
        EXPECT_EQ(MaterialIndex, c.index);
    }
}

TEST_F(PositionTest, MenCanBePlacedAndTakenOffAtRandom) {
    constexpr Piece kinds[] = {KING, KNIGHT, PAWN, ROOK, BISHOP, QUEEN};
    std::mt19937 random(3);
    ClearBoard();
    for (int i = 0; i < 3000; i++) {
        const int sq = int(random() % 64);
        const Piece piece = kinds[random() % 6];
        const Colour colour = Colour(random() & 1);
        RemovePiece(sq);
        const bool fits = piece == PAWN ? PieceCount[PAWN][colour] < 8 : MenCount < 40;
        if (fits && (piece != KING || PieceCount[KING][colour] == 0))
            PlacePiece(sq, colour, piece);
        ASSERT_EQ(FirstDifferenceFromRecomputation(), "") << i;
    }
    for (int sq = 0; sq < 64; sq++)
        RemovePiece(sq);
    EXPECT_EQ(PosKey, 0u);
    EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
}

TEST_F(PositionTest, ClearingLeavesTheGameAlone) {
    Play("e2e4 e7e5 g1f3");
    ClearBoard();
    EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
    EXPECT_EQ(MenCount, 0);
    EXPECT_EQ(FiftyCount, 0);
    EXPECT_EQ(SideToMove, BLACK);
    EXPECT_EQ(CastleRights, 15);
    EXPECT_EQ(Ply, 3);
}

TEST_F(PositionTest, SecondKingTakesThePlaceOfTheFirst) {
    ClearBoard();
    PlacePiece(Sq("e1"), WHITE, KING);
    PlacePiece(Sq("a4"), WHITE, KING);
    EXPECT_EQ(KingSquare[WHITE], Sq("a4"));
    EXPECT_EQ(PieceBB[KING][WHITE], Squares("a4"));
    EXPECT_EQ(ColourBB[WHITE], Squares("e1 a4"));
    EXPECT_EQ(FirstDifferenceFromRecomputation(ANY_BOARD), "");
}

TEST_F(PositionTest, LastMoveIsNoneAtTheSetUpAndAfterANullMove) {
    EXPECT_EQ(LastMove(), NO_MOVE);
    Play("e2e4");
    EXPECT_EQ(MoveText(LastMove()), "e2e4");
    MakeNullMove();
    EXPECT_EQ(LastMove(), NO_MOVE);
    UnmakeNullMove();
    EXPECT_EQ(MoveText(LastMove()), "e2e4");
}

TEST_F(PositionTest, GamesOutlastTheRecords) {
    constexpr int plies = MAX_GAME_PLY + 1000;
    const char* const shuffle[] = {"g1f3", "g8f6", "f3g1", "f6g8"};
    const uint64_t startKey = PosKey;
    for (int i = 0; i < plies; i++) {
        Play(shuffle[i % 4]);
        ForgetOldHistory();
        ASSERT_LE(Ply, MAX_GAME_PLY);
    }
    ASSERT_GE(Ply, 2000);
    EXPECT_EQ(PosKey, startKey);
    // What was kept is the newest part, and these go back to before the records were moved.
    for (int i = 0; i < 2000; i++) {
        UnmakeMove();
        ASSERT_EQ(FiftyCount, plies - 1 - i);
    }
    EXPECT_EQ(PosKey, startKey);
    EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
    Ply = MAX_GAME_PLY;
    SetupPly = MAX_GAME_PLY - 3;
    ForgetOldHistory();
    EXPECT_EQ(SetupPly, Ply - 3) << "what was set up late in the game stays its beginning";
    SetStartPosition();
}
