#include "board/generate.h"

#include "board/evasions.h"
#include "board/quiet_checks.h"
#include "board_moves.h"

namespace {

class Generate : public BoardTest {};

void Captures() {
    GenerateCaptures(ColourBB[ChangeSide(SideToMove)]);
}

struct Sequence {
    const char* name;
    const char* fen;
    const char* moves;
};

} // namespace

TEST_F(Generate, CapturesComeByKindAndThenBySquare) {
    constexpr Sequence cases[] = {
        {"White", "4k3/7p/3p1n2/1pp1P3/3r4/2N1B2R/1Q3n2/3RK3 w - -",
         "e5d6 e5f6 c3b5 e3f2 e3d4 d1d4 h3h7 b2f2 b2b5 e1f2"},
        {"Black", "3rk3/1q3N2/2n1b2r/3R4/1PP1p3/3P1N2/7P/4K3 b - -",
         "e4d3 e4f3 c6b4 e6d5 e6f7 h6h2 d8d5 b7b4 b7f7 e8f7"},
        {"en passant from both sides", "4k3/8/8/3PpP2/8/8/8/4K3 w - e5", "d5e6 f5e6"},
        {"en passant from both sides, Black", "4k3/8/8/8/3pPp2/8/8/4K3 b - e4", "d4e3 f4e3"},
        {"en passant after the other pawn captures", "4k3/8/5n2/3PpP2/6P1/7p/1n6/R3K3 w - e5",
         "d5e6 f5e6"},
        {"en passant before the knights", "4k3/8/n5n1/2p1pP2/3N4/8/8/4K3 w - e5", "f5g6 f5e6"},
        {"no en passant round the edge", "4k3/8/7P/p6P/1P6/8/8/4K3 w - a5", "b4a5"},
        {"capture promotions", "r1r1k3/1P6/8/8/8/8/8/4K3 w - -",
         "b7a8q b7a8n b7a8r b7a8b b7c8q b7c8n b7c8r b7c8b"},
        {"capture promotions, Black", "4k3/8/8/8/8/8/1p6/R1R1K3 b - -",
         "b2a1q b2a1n b2a1r b2a1b b2c1q b2c1n b2c1r b2c1b"},
        {"nothing to take", "4k3/8/8/8/8/8/4P3/4K3 w - -", ""},
    };
    for (const Sequence& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(MovesText(Generated(Captures)), c.moves);
    }
}

TEST_F(Generate, CapturesKeepToTheirTargets) {
    LoadFen("4k3/7p/3p1n2/1pp1P3/3r4/2N1B2R/1Q3n2/3RK3 w - -");
    EXPECT_EQ(MovesText(Generated([] { GenerateCaptures(Squares("d4 f6")); })), "e5f6 e3d4 d1d4");
    EXPECT_EQ(MovesText(Generated([] { GenerateCaptures(Squares("a8")); })), "");
}

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

TEST_F(Generate, PromotionsComeFromTheHighestSquareDown) {
    constexpr Sequence cases[] = {
        {"White", "8/P1P4P/3k4/8/8/8/8/4K3 w - -",
         "h7h8q h7h8r h7h8n h7h8b c7c8q c7c8r c7c8n c7c8b a7a8q a7a8r a7a8n a7a8b"},
        {"Black", "4k3/8/8/8/8/3K4/p1p4p/8 b - -",
         "h2h1q h2h1r h2h1n h2h1b c2c1q c2c1r c2c1n c2c1b a2a1q a2a1r a2a1n a2a1b"},
        {"blocked", "r1r1k3/PP6/8/8/8/8/8/4K3 w - -", "b7b8q b7b8r b7b8n b7b8b"},
    };
    for (const Sequence& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(MovesText(Generated(GeneratePromotions)), c.moves);
    }
}

TEST_F(Generate, KnightsAreOfferedOnlyWhereTheyGiveCheck) {
    constexpr Sequence cases[] = {
        {"White", "8/P1P4P/3k4/8/8/8/8/4K3 w - -", "h7h8q c7c8q c7c8n a7a8q"},
        {"Black", "4k3/8/8/8/8/3K4/p1p4p/8 b - -", "h2h1q c2c1q c2c1n a2a1q"},
        {"blocked", "r1r1k3/PP6/8/8/8/8/8/4K3 w - -", "b7b8q"},
    };
    for (const Sequence& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(MovesText(Generated(GeneratePromotionsQN)), c.moves);
    }
}

TEST_F(Generate, QuietMovesComeByKindAndThenBySquare) {
    constexpr Sequence cases[] = {
        {"White", "4k3/P7/3P4/8/8/2N5/P3B1PQ/R3K2R w KQ -",
         "e1g1 e1c1 c3b1 c3d1 c3a4 c3e4 c3b5 c3d5 e2d1 e2f1 e2d3 e2f3 e2c4 e2g4 e2b5 e2h5 e2a6 "
         "a2a3 a2a4 g2g3 g2g4 d6d7 a1b1 a1c1 a1d1 h1f1 h1g1 "
         "h2g1 h2g3 h2h3 h2f4 h2h4 h2e5 h2h5 h2h6 h2h7 h2h8 e1d1 e1f1 e1d2 e1f2"},
        {"Black", "r3k2r/p3b1pq/2n5/8/8/3p4/p7/4K3 b kq -",
         "e8g8 e8c8 c6b4 c6d4 c6a5 c6e5 c6b8 c6d8 e7a3 e7b4 e7h4 e7c5 e7g5 e7d6 e7f6 e7d8 e7f8 "
         "d3d2 a7a6 a7a5 g7g6 g7g5 a8b8 a8c8 a8d8 h8f8 h8g8 "
         "h7h1 h7h2 h7h3 h7e4 h7h4 h7f5 h7h5 h7g6 h7h6 h7g8 e8d7 e8f7 e8d8 e8f8"},
        {"pawns that are blocked", "7k/8/8/8/n1n5/1n6/PPPP4/7K w - -",
         "a2a3 c2c3 d2d3 d2d4 h1g1 h1g2 h1h2"},
        {"pawns behind blocked squares, Black", "k7/pppp4/1N6/N1N5/8/8/8/K7 b - -",
         "a7a6 c7c6 d7d6 d7d5 a8b8"},
    };
    for (const Sequence& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(MovesText(Generated([] { GenerateQuiet(0); })), c.moves);
    }
}

TEST_F(Generate, CastlingNeedsAFreeAndUnattackedWay) {
    constexpr Sequence cases[] = {
        {"both", "4k3/8/8/8/8/8/8/R3K2R w KQ -", "e1g1 e1c1"},
        {"right to one only", "4k3/8/8/8/8/8/8/R3K2R w Q -", "e1c1"},
        {"no rights", "4k3/8/8/8/8/8/8/R3K2R w - -", ""},
        {"g1 attacked", "4k1r1/8/8/8/8/8/8/R3K2R w KQ -", "e1c1"},
        {"f1 attacked", "4kr2/8/8/8/8/8/8/R3K2R w KQ -", "e1c1"},
        {"h1 attacked", "4k2r/8/8/8/8/8/8/R3K2R w KQ -", "e1g1 e1c1"},
        {"d1 attacked", "3rk3/8/8/8/8/8/8/R3K2R w KQ -", "e1g1"},
        {"c1 attacked", "2r1k3/8/8/8/8/8/8/R3K2R w KQ -", "e1g1"},
        {"b1 attacked", "1r2k3/8/8/8/8/8/8/R3K2R w KQ -", "e1g1 e1c1"},
        {"a pawn attacks f1 and d1", "4k3/8/8/8/8/8/4p3/R3K2R w KQ -", ""},
        {"the king's own square is not asked", "4r1k1/8/8/8/8/8/8/R3K2R w KQ -", "e1g1 e1c1"},
        {"f1 taken", "4k3/8/8/8/8/8/8/R3KB1R w KQ -", "e1c1"},
        {"g1 taken by the enemy", "4k3/8/8/8/8/8/8/R3K1nR w KQ -", "e1c1"},
        {"b1 taken", "4k3/8/8/8/8/8/8/RN2K2R w KQ -", "e1g1"},
        {"c1 taken", "4k3/8/8/8/8/8/8/R1B1K2R w KQ -", "e1g1"},
        {"d1 taken", "4k3/8/8/8/8/8/8/R2QK2R w KQ -", "e1g1"},
        {"Black, both", "r3k2r/8/8/8/8/8/8/4K3 b kq -", "e8g8 e8c8"},
        {"Black, g8 attacked", "r3k2r/8/8/8/8/8/8/4K1R1 b kq -", "e8c8"},
        {"Black, d8 attacked", "r3k2r/8/8/8/8/8/8/3RK3 b kq -", "e8g8"},
        {"Black, b8 attacked", "r3k2r/8/8/8/8/8/8/1R2K3 b kq -", "e8g8 e8c8"},
        {"Black, b8 taken", "rn2k2r/8/8/8/8/8/8/4K3 b kq -", "e8g8"},
    };
    for (const Sequence& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        std::vector<Move> moves = Generated([] { GenerateQuiet(0); });
        std::erase_if(moves, [](Move move) { return !IsCastling(move); });
        EXPECT_EQ(MovesText(moves), c.moves);
    }
}

TEST_F(Generate, CastlingIsOneOfFourWords) {
    LoadFen("r3k2r/8/8/8/8/8/8/R3K2R w KQkq -");
    EXPECT_EQ(FindMove("e1g1"), 4484u);
    EXPECT_EQ(FindMove("e1c1"), 4228u);
    LoadFen("r3k2r/8/8/8/8/8/8/R3K2R b KQkq -");
    EXPECT_EQ(FindMove("e8g8"), 8124u);
    EXPECT_EQ(FindMove("e8c8"), 7868u);
}

TEST_F(Generate, QuietMovesAreScoredByTheirPlaceInTheHistory) {
    struct Case {
        const char* fen;
        const char* move;
        int slice;
        int index;
    };
    constexpr const char* white = "4k3/8/8/8/8/8/4P3/R2QKBNR w KQ -";
    constexpr Case cases[] = {
        {white, "e2e4", 0, 11800},
        {white, "e2e4", 1, 44568},
        {white, "g1f3", 0, 2700},
        {"4k3/8/8/8/8/8/8/4KB2 w - -", "f1c4", 0, 11530},
        {white, "a1b1", 0, 16512},
        {white, "d1d2", 0, 25990},
        {white, "e1f2", 1, 34440},
        {"4k3/8/8/8/8/8/8/4K2R w K -", "e1g1", 0, 776},
        {"4k3/4p3/8/8/8/8/8/4K3 b - -", "e7e5", 0, 12905},
        {"4k3/4q3/8/8/8/8/8/4K3 b - -", "e7d6", 1, 62953},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.move) + " slice " + std::to_string(c.slice));
        LoadFen(c.fen);
        HistoryTable[c.index] = 777;
        for (const ScoredMove& scored : Scored([&c] { GenerateQuiet(c.slice); }))
            EXPECT_EQ(scored.score, MoveText(scored.move) == c.move ? 777 : 0)
                << MoveText(scored.move);
        HistoryTable[c.index] = 0;
    }
}

TEST_F(Generate, EveryGeneratorAppends) {
    LoadFen("2r1k3/1P6/8/8/8/8/4P3/4K3 w - -");
    MoveStackTop = 5;
    MoveStack[4] = {MoveWord(1, 2, KNIGHT), 99};
    GenerateCaptures(ColourBB[BLACK]);
    EXPECT_EQ(MoveStackTop, 9);
    GeneratePromotions();
    EXPECT_EQ(MoveStackTop, 13);
    GenerateQuiet(0);
    EXPECT_EQ(MoveStackTop, 13 + 6);
    EXPECT_EQ(MoveStack[4].score, 99);
}

TEST_F(Generate, CapturesAndPromotionsAreScoredAlike) {
    WalkRandomGames(60, [] {
        for (const auto generate : {Captures, GeneratePromotions, GeneratePromotionsQN}) {
            for (const ScoredMove& scored : Scored(generate))
                ASSERT_EQ(scored.score, CaptureScore(scored.move))
                    << MoveText(scored.move) << " in " << WriteFen();
        }
    });
}

// Colours exchanged and the board turned over, the same moves are there with the same scores.
TEST_F(Generate, TreatsBothColoursAlike) {
    const auto flipped = [] {
        const Colour us = SideToMove;
        const int rights = CastleRights;
        const Move last = LastMove();
        const std::vector<int> board(Board, Board + 64);
        const Bitboard black = ColourBB[BLACK];
        ClearBoard();
        for (int sq = 0; sq < 64; sq++) {
            if (board[size_t(sq)] != EMPTY)
                PlacePiece(sq ^ 56, black >> sq & 1 ? WHITE : BLACK, Piece(board[size_t(sq)]));
        }
        SideToMove = ChangeSide(us);
        CastleRights = (rights & 3) << 2 | rights >> 2;
        Ply = last != NO_MOVE ? 1 : 0;
        UndoStack[0].move = last ^ (56 | 56 << 6);
    };
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
            moves.emplace_back(flip ? scored.move ^ (56 | 56 << 6) : scored.move, scored.score);
        std::sort(moves.begin(), moves.end());
        return moves;
    };
    for (const TestPosition& position : VariedPositions()) {
        SCOPED_TRACE(position.name);
        LoadFen(position.fen);
        const auto moves = listed(false);
        flipped();
        EXPECT_EQ(moves, listed(true));
    }
}
