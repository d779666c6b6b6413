#include "board/moves/evasions.h"

#include "support/board_test.h"

namespace {

class Evasions : public BoardTest {};

} // namespace

TEST_F(Evasions, AreScoredByKind) {
    LoadFen("4r2k/5P2/8/1B6/8/2N3R1/Q2P4/4K3 w - -");
    HistoryTable[32768 + (3 * 64 + 4) * 2] = 321;        // e1d1
    HistoryTable[32768 + (12 * 64 + 18) * 2] = 654;      // c3e2, which the bishop guards
    HistoryTable[32768 + (28 * 64 + 18) * 2] = 987;      // c3e4, which loses the knight
    HistoryTable[32768 + 24576 + (44 * 64 + 8) * 2] = 5; // a2e6, which loses the queen
    struct Score {
        const char* move;
        int score;
    };
    constexpr int goodCapture = 1 << 29;
    constexpr Score scores[] = {
        {"e1d1", 321},
        {"e1f1", 0},
        {"c3e2", 654},
        {"c3e4", -100300},
        {"a2e6", -100900},
        {"b5e8", goodCapture + 104700},
        {"f7e8q", goodCapture + 112900},
        {"f7e8n", -123100}, // a losing capture is not lifted
    };
    const std::vector<ScoredMove> evasions = Scored(GenerateEvasions);
    for (const Score& s : scores) {
        SCOPED_TRACE(s.move);
        const auto found = std::find_if(evasions.begin(), evasions.end(),
                                        [&s](ScoredMove m) { return MoveText(m.move) == s.move; });
        ASSERT_NE(found, evasions.end());
        EXPECT_EQ(found->score, s.score);
    }
}

TEST_F(Evasions, RememberedReplyIsLifted) {
    LoadFen("r6k/8/8/8/8/8/8/4K3 b - -");
    Play("a8e8");
    const Move reply = MoveWord(Sq("e1"), Sq("d1"), KING);
    EvasionReply[EvasionReplyIndex(LastMove(), Sq("e1"), WHITE)] = reply;
    for (const ScoredMove& scored : Scored(GenerateEvasions))
        EXPECT_EQ(scored.score, scored.move == reply ? 10000 : 0) << MoveText(scored.move);
}

TEST_F(Evasions, AreAllLegalMovesOutOfCheck) {
    int positions = 0;
    int doubleChecks = 0;
    int enPassants = 0;
    int promotions = 0;
    const auto compare = [&] {
        const Colour us = SideToMove;
        if (!InCheck(us))
            return;
        const std::vector<Move> generated = Generated(GenerateEvasions);
        std::vector<Move> legal = generated;
        std::erase_if(legal, [](Move move) { return !Playable(move); });
        ASSERT_EQ(MovesText(Sorted(legal)), MovesText(Sorted(PlayableMoves()))) << WriteFen();
        // The header promises that the illegal ones are left out already.
        ASSERT_EQ(legal.size(), generated.size()) << WriteFen();
        positions++;
        doubleChecks += CountBits(AttackersOf(ChangeSide(us), KingSquare[us])) > 1;
        for (const Move move : legal) {
            enPassants += IsEnPassant(move);
            promotions += Promotion(move) != EMPTY;
        }
    };
    WalkRandomGames(200, compare);
    for (const TestPosition& position : VariedPositions()) {
        LoadFen(position.fen);
        const size_t width = Generated(GenerateAll).size();
        WalkTree(width > 60 ? 1 : 2, compare);
    }
    // The walks have seen every kind of answer.
    EXPECT_GT(positions, 2000);
    EXPECT_GT(doubleChecks, 10);
    EXPECT_GT(enPassants, 2);
    EXPECT_GT(promotions, 30);
}
