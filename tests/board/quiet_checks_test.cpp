#include "board/moves/quiet_checks.h"

#include "board/exchange.h"
#include "support/board_test.h"

namespace {

class QuietChecks : public BoardTest {};

// The quiet moves of that kind that check and lose nothing, in the order of the quiet generator.
std::vector<Move> CheckingMoves() {
    const std::vector<Move> quiet = Generated([] { GenerateQuiet(0); });
    std::vector<Move> checks;
    for (const Piece piece : {QUEEN, ROOK, BISHOP, KNIGHT, PAWN}) {
        for (const Move move : quiet) {
            if (MovingPiece(move) == piece && GivesCheck(move) && SafeExchange(move))
                checks.push_back(move);
        }
    }
    return checks;
}

} // namespace

TEST_F(QuietChecks, AreAmongTheQuietMovesWithTheirScores) {
    int checks = 0;
    std::mt19937 random(11);
    for (int32_t& entry : HistoryTable)
        entry = int32_t(random() % 32700);
    const auto compare = [&] {
        if (InCheck(SideToMove))
            return;
        ASSERT_EQ(MovesText(Generated([] { GenerateQuietChecks(0); })), MovesText(CheckingMoves()))
            << WriteFen();
        for (const int slice : {0, 1}) {
            const std::vector<ScoredMove> quiet = Scored([slice] { GenerateQuiet(slice); });
            for (const ScoredMove& check : Scored([slice] { GenerateQuietChecks(slice); })) {
                const auto same = std::find_if(quiet.begin(), quiet.end(),
                                               [&](ScoredMove m) { return m.move == check.move; });
                ASSERT_NE(same, quiet.end());
                ASSERT_EQ(check.score, same->score);
                checks++;
            }
        }
    };
    WalkRandomGames(150, compare);
    for (const TestPosition& position : VariedPositions()) {
        LoadFen(position.fen);
        WalkTree(1, compare);
    }
    EXPECT_GT(checks, 1000);
}
