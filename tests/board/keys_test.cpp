#include "board/keys.h"

#include "support/board_test.h"

namespace {

class Keys : public BoardTest {};

} // namespace

// Learning files of earlier runs are read with these keys.
TEST_F(Keys, AreTheSameInEveryRun) {
    EXPECT_EQ(PieceKeys[WHITE][PAWN][0], 0x27e5db756495fc13u); // the first one drawn
    EXPECT_EQ(PieceKeys[BLACK][PAWN][0], 0x7478d47c69036280u);
    EXPECT_EQ(PieceKeys[WHITE][KNIGHT][0], 0xb0d284eaa417ff11u);
    EXPECT_EQ(PieceKeys[BLACK][KING][0], 0xe8c574749e1c6bb1u);
    EXPECT_EQ(PieceKeys[WHITE][PAWN][1], 0x327c9cd68c10fdbbu);
    EXPECT_EQ(PieceKeys[WHITE][QUEEN][27], 0xd7da0d713bb55a18u);
    EXPECT_EQ(PieceKeys[BLACK][ROOK][63], 0xabb6a8f4dd571608u);
    EXPECT_EQ(CastleKeys[0], 0xeab18e0033c1a026u);
    EXPECT_EQ(CastleKeys[15], 0x987f74dbe8d382e7u);
    EXPECT_EQ(EpKeys[0], 0xdc3b47160d186962u);
    EXPECT_EQ(EpKeys[7], 0x54e945bff9370dacu); // the last one drawn
    EXPECT_EQ(PosKey, 0x93564fa2667ff762u);    // starting position
    EXPECT_EQ(PawnKey, 0xdbeb060b054d1273u);
}
