#include "board/keys.h"

#include "support/board_test.h"

namespace {

class Keys : public BoardTest {};

} // namespace

// Learning files of earlier runs are read with these keys.
TEST_F(Keys, AreTheSameInEveryRun) {
    EXPECT_EQ(PieceKeys[WHITE][PAWN][0], 0x27e5db756495fc13u); // the first one drawn
    EXPECT_EQ(PieceKeys[BLACK][PAWN][0], 0x7478d47c69036280u);
    EXPECT_EQ(PieceKeys[WHITE][QUEEN][27], 0xd7da0d713bb55a18u);
    EXPECT_EQ(PieceKeys[BLACK][ROOK][63], 0xabb6a8f4dd571608u);
    EXPECT_EQ(CastleKeys[15], 0x987f74dbe8d382e7u);
    EXPECT_EQ(EpKeys[7], 0x54e945bff9370dacu); // the last one drawn
    EXPECT_EQ(PosKey, 0x93564fa2667ff762u);    // starting position
    EXPECT_EQ(PawnKey, 0xdbeb060b054d1273u);
}
