#include "board/evasions.h"

#include "board_moves.h"

namespace {

class Evasions : public BoardTest {};

struct Sequence {
    const char* name;
    const char* fen;
    const char* moves;
};

} // namespace

TEST_F(Evasions, ComeKingFirstAndThenByKind) {
    constexpr Sequence cases[] = {
        {"every kind of answer", "4r2k/5P2/8/1B6/8/2N3R1/Q2P4/4K3 w - -",
         "e1d1 e1f1 e1f2 c3e2 c3e4 b5e2 b5e8 g3e3 a2e6 f7e8q f7e8n f7e8r f7e8b"},
        {"pawns step between", "8/8/8/8/r6K/1P6/4P3/7k w - -",
         "h4g3 h4h3 h4g5 h4h5 e2e4 b3b4 b3a4"},
        {"pawns step between, Black", "7K/4p3/1p6/R6k/8/8/8/8 b - -",
         "h5g4 h5h4 h5g6 h5h6 b6b5 e7e5 b6a5"},
        {"en passant", "8/8/8/1PpP4/1K6/8/8/4k3 w - c5",
         "b4a3 b4b3 b4c3 b4a4 b4c4 b4a5 b4c5 b5c6 d5c6"},
        {"en passant would uncover a bishop", "5b2/8/8/1Pp5/1K6/8/8/4k3 w - c5",
         "b4a3 b4b3 b4c3 b4a4 b4c4 b4a5"},
        {"promotion between", "r2K4/1P6/8/8/8/8/8/4k3 w - -",
         "d8c7 d8d7 d8e7 b7b8q b7b8r b7b8n b7b8b b7a8q b7a8n b7a8r b7a8b"},
        {"two checkers", "4k3/8/3n4/1B6/8/8/8/K3R3 b - -", "e8f7 e8d8 e8f8"},
        {"not along the line", "4r2k/8/8/8/4K3/8/8/8 w - -", "e4d3 e4f3 e4d4 e4f4 e4d5 e4f5"},
        {"not along the diagonal", "7k/8/5b2/8/3K4/8/8/8 w - -", "d4d3 d4e3 d4c4 d4e4 d4c5 d4d5"},
        {"capture of a guarded checker is none", "4k3/8/8/8/8/3p4/4q3/4K3 w - -", ""},
        {"the king takes", "4k3/8/8/8/8/8/4q3/4K3 w - -", "e1e2"},
    };
    for (const Sequence& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        ASSERT_TRUE(InCheck(SideToMove));
        EXPECT_EQ(MovesText(Generated(GenerateEvasions)), c.moves);
    }
}

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
    struct Case {
        const char* fen;
        const char* check;
        Move reply;
        int slot;
    };
    constexpr Case cases[] = {
        {"r6k/8/8/8/8/8/8/4K3 b - -", "a8e8", MoveWord(Sq("e1"), Sq("d1"), KING), 7688},
        {"4k3/8/8/8/8/8/8/R6K w - -", "a1e1", MoveWord(Sq("e8"), Sq("f7"), KING), 633},
        {"7k/8/8/1r6/8/8/3P4/K7 b - -", "b5a5", MoveWord(Sq("a1"), Sq("b2"), KING), 4096},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.check);
        LoadFen(c.fen);
        Play(c.check);
        EvasionReply[c.slot] = c.reply;
        for (const ScoredMove& scored : Scored(GenerateEvasions)) {
            EXPECT_EQ(scored.score, scored.move == c.reply ? 10000 : 0) << MoveText(scored.move);
        }
        EvasionReply[c.slot] = NO_MOVE;
    }
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
