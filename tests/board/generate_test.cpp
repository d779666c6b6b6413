#include "board/moves/generate.h"

#include "board/moves/evasions.h"
#include "board/moves/quiet_checks.h"
#include "support/board_test.h"
#include "support/flipped.h"

namespace {

class Generate : public BoardTest {};

void Captures() {
    GenerateCaptures(ColourBB[ChangeSide(SideToMove)]);
}

} // namespace

TEST_F(Generate, EnPassantNeedsADoubleStepAsTheLastMove) {
    Play("e2e4 a7a6 e4e5 d7d5");
    EXPECT_EQ(FindMove("e5d6"), MoveWord(Sq("e5"), Sq("d6"), PAWN));
    MakeNullMove();
    MakeNullMove();
    EXPECT_EQ(FindMove("e5d6"), NO_MOVE);
    UnmakeNullMove();
    UnmakeNullMove();
    Play("h2h3 h7h6");
    EXPECT_EQ(FindMove("e5d6"), NO_MOVE);
    // A pawn that arrives beside it by single steps has no such right against it.
    LoadFen("4k3/8/5p2/4P3/8/8/8/4K3 b - -");
    Play("f6f5");
    EXPECT_EQ(MovesText(Generated(Captures)), "");
    // Nor has a rook that makes the same way.
    LoadFen("4k3/5r2/8/4P3/8/8/8/4K3 b - -");
    Play("f7f5");
    EXPECT_EQ(MovesText(Generated(Captures)), "");
}

TEST_F(Generate, KnightsAreOfferedOnlyWhereTheyGiveCheck) {
    LoadFen("8/P1P4P/3k4/8/8/8/8/4K3 w - -");
    EXPECT_EQ(MovesText(Generated(GeneratePromotionsQN)), "h7h8q c7c8q c7c8n a7a8q");
}

// Colours exchanged and the board turned over, the same moves are there with the same scores.
TEST_F(Generate, TreatsBothColoursAlike) {
    const auto listed = [](bool flip) {
        std::vector<std::pair<Move, int>> moves;
        const auto generateEach = [] {
            GenerateAll();
            GeneratePromotionsQN();
            if (InCheck(SideToMove))
                GenerateEvasions();
            else
                GenerateQuietChecks(0);
        };
        for (const ScoredMove& scored : Scored(generateEach))
            moves.emplace_back(flip ? FlippedMove(scored.move) : scored.move, scored.score);
        std::sort(moves.begin(), moves.end());
        return moves;
    };
    WalkRandomGames(60, [&listed] {
        const std::string fen = WriteFen();
        const auto moves = listed(false);
        LoadFen(FlippedFen().c_str());
        ASSERT_EQ(moves, listed(true)) << fen;
        LoadFen(fen.c_str());
    });
}
