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

TEST_F(QuietChecks, AreTheSafeOnesByKind) {
    struct Case {
        const char* name;
        const char* fen;
        const char* moves;
    };
    constexpr Case cases[] = {
        {"knight before a bishop", "k7/8/2N5/8/4B3/P7/1P6/RR5K w - -",
         "c6b4 c6d4 c6a5 c6e5 c6e7 c6d8"},
        {"pawn before a bishop", "7k/8/8/8/3P4/2B5/8/K7 w - -", "d4d5"},
        {"double step checks, Black", "8/3p4/2k5/8/4K3/8/8/8 b - -", "d7d5"},
        {"king moves are left out", "4k3/8/8/8/8/8/4K3/4R3 w - -", ""},
        {"castling is left out", "5k2/8/8/8/8/8/8/4K2R w K -", "h1f1 h1h8"},
        {"losing checks are left out", "4k3/8/8/8/8/8/8/K2Q4 w - -", "d1e1 d1e2 d1a4 d1h5"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(MovesText(Generated([] { GenerateQuietChecks(0); })), c.moves);
    }
}

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
