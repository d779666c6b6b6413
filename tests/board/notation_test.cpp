#include "board/notation.h"

#include "board/moves/legal_moves.h"
#include "support/board_test.h"

namespace {

class Notation : public BoardTest {};

TEST_F(Notation, WritesSquaresAndThePromotionLetter) {
    EXPECT_EQ(MoveText(MoveWord(12, 28, PAWN)), "e2e4");
    EXPECT_EQ(MoveText(MoveWord(52, 60, PAWN, EMPTY, KNIGHT)), "e7e8n");
    EXPECT_EQ(MoveText(MoveWord(8, 1, PAWN, ROOK, QUEEN)), "a2b1q");
    EXPECT_EQ(ShortMoveText(MoveWord(52, 60, PAWN, EMPTY, KNIGHT)), "e7e8");
    EXPECT_EQ(MoveText(NO_MOVE), "0000");
}

TEST_F(Notation, RecognisesTheShapeInEitherCase) {
    for (const char* const text : {"e2e4", "E2E4", "a1h8q", "a7a8 x", "h1a1?"})
        EXPECT_TRUE(HasMoveShape(text)) << text;
    for (const char* const text : {"", "e2e", "e2e9", "i2e4", "22e4", "e2-e4", "edit", "O-O"})
        EXPECT_FALSE(HasMoveShape(text)) << text;
}

TEST_F(Notation, ReadsBackEveryLegalMoveAndTakesLettersAsTyped) {
    LoadFen("r3k2r/1P1p4/8/4P3/8/8/8/R3K2R w KQkq - 0 1");
    const int start = MoveStackTop;
    const int count = GenerateLegalMoves();
    MoveStackTop = start;
    ASSERT_GT(count, 20);
    for (int i = start; i < start + count; i++)
        EXPECT_EQ(MoveFromText(MoveText(MoveStack[i].move)), MoveStack[i].move);
    EXPECT_TRUE(IsLegal(MoveFromText("b7a8q")));
    EXPECT_FALSE(IsLegal(MoveFromText("b7a8Q"))) << "an upper-case letter promotes to nothing";
    EXPECT_FALSE(IsLegal(MoveFromText("E1G1"))) << "upper-case files lie off the board";
    EXPECT_FALSE(IsLegal(MoveFromText("b7a8")));
}

} // namespace
