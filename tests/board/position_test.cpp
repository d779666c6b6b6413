#include "board/position.h"

#include "board/recompute.h"
#include "support/board_test.h"
#include "support/scratch.h"

namespace {

class PositionTest : public BoardTest {};

} // namespace

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
        EXPECT_EQ(Printed(RecomputeMaterialIndex), c.printed);
        EXPECT_EQ(MaterialIndex, c.index);
    }
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
