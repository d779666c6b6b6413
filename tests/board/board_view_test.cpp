#include "board/board_view.h"

#include "board_moves.h"

namespace {

class BoardView : public BoardTest {};

std::string Printed() {
    testing::internal::CaptureStdout();
    PrintBoard();
    return testing::internal::GetCapturedStdout();
}

} // namespace

TEST_F(BoardView, MarksBlackMenWithAnAsterisk) {
    EXPECT_EQ(Printed(), "*R*N*B*Q*K*B*N*R\n"
                         "*P*P*P*P*P*P*P*P\n"
                         " . . . . . . . .\n"
                         " . . . . . . . .\n"
                         " . . . . . . . .\n"
                         " . . . . . . . .\n"
                         " P P P P P P P P\n"
                         " R N B Q K B N R\n");
    LoadFen("4k2q/8/8/8/8/8/r7/4K2B w - -");
    EXPECT_EQ(Printed(), " . . . .*K . .*Q\n"
                         " . . . . . . . .\n"
                         " . . . . . . . .\n"
                         " . . . . . . . .\n"
                         " . . . . . . . .\n"
                         " . . . . . . . .\n"
                         "*R . . . . . . .\n"
                         " . . . . K . . B\n");
}
