#include "board/fen.h"

#include "board/moves/pseudo_legal.h"
#include "board/pawns.h"
#include "board/recompute.h"
#include "support/board_test.h"
#include "support/scratch.h"

namespace {

class Fen : public BoardTest {};

} // namespace

TEST_F(Fen, IsWrittenAsItWasRead) {
    for (const TestPosition& position : VariedPositions()) {
        SCOPED_TRACE(position.name);
        LoadFen(position.fen);
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        // The two counters are not read.
        std::string expected = position.fen;
        expected.erase(expected.rfind(' ', expected.rfind(' ') - 1));
        EXPECT_EQ(WriteFen(), expected + " 0 1");
    }
}

TEST_F(Fen, TellsWhatWasPlayedSinceItWasSetUp) {
    struct Case {
        const char* fen;
        const char* moves;
        const char* written;
    };
    constexpr Case cases[] = {
        {"4k3/2p5/8/8/8/8/4P3/4K3 w - - 40 60", "e2e4", "4k3/2p5/8/8/4P3/8/8/4K3 b - e4 0 1"},
        {"4k3/2p5/8/8/8/8/4P3/4K3 w - -", "e2e4 c7c5", "4k3/8/8/2p5/4P3/8/8/4K3 w - c5 0 2"},
        {"4k3/8/8/8/8/8/8/4K3 b - -", "e8e7", "8/4k3/8/8/8/8/8/4K3 w - - 1 2"},
        {"4k3/8/8/3pP3/8/8/8/4K3 w - d5", "e1e2 e8e7", "8/4k3/8/3pP3/8/8/4K3/8 w - - 2 2"},
    };
    for (const Case& c : cases) {
        LoadFen(c.fen);
        Play(c.moves);
        EXPECT_EQ(WriteFen(), c.written);
    }
}

TEST_F(Fen, StandardFieldsAreReadAndWrittenWhereTheyAreWanted) {
    struct Case {
        const char* fen;
        const char* written;
    };
    constexpr Case cases[] = {
        {"4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2", "4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1"},
        {"4k3/8/8/3pP3/8/8/8/4K3 w - d5 0 2", "4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1"},
        {"4k3/8/8/8/3pP3/8/8/4K3 b - e3 9 2", "4k3/8/8/8/3pP3/8/8/4K3 b - e3 0 1"},
        {"4k3/8/8/8/3pP3/8/8/4K3 b - e6 9 2", "4k3/8/8/8/3pP3/8/8/4K3 b - - 9 1"},
        {"4k3/8/8/8/8/8/8/4K3 w - - 99", "4k3/8/8/8/8/8/8/4K3 w - - 99 1"},
        {"4k3/8/8/8/8/8/8/4K3 w - - moves", "4k3/8/8/8/8/8/8/4K3 w - - 0 1"},
    };
    for (const Case& c : cases) {
        LoadFen(c.fen, FenFields::STANDARD);
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        EXPECT_EQ(WriteFen(FenFields::STANDARD), c.written);
    }
}

TEST_F(Fen, SideIsBlackUnlessItSaysWhite) {
    struct Case {
        const char* fen;
        Colour side;
    };
    constexpr Case cases[] = {
        {"4k3/8/8/8/8/8/8/4K3 w - -", WHITE},      {"4k3/8/8/8/8/8/8/4K3 b - -", BLACK},
        {"4k3/8/8/8/8/8/8/4K3 W - -", BLACK},      {"4k3/8/8/8/8/8/8/4K3", BLACK},
        {"   4k3/8/8/8/8/8/8/4K3   white", WHITE},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fen);
        LoadFen(c.fen);
        EXPECT_EQ(SideToMove, c.side);
        EXPECT_EQ(KingSquare[WHITE], Sq("e1"));
        EXPECT_EQ(KingSquare[BLACK], Sq("e8"));
        EXPECT_EQ(MenCount, 2);
    }
}

TEST_F(Fen, OddPlacementsAreReadAsFarAsTheyGo) {
    struct Case {
        const char* name;
        const char* fen;
        const char* written;
    };
    constexpr Case cases[] = {
        {"unknown characters are skipped", "4kx3/9/0/8!/8/8/8/4K3 w - -",
         "4k3/8/8/8/8/8/8/4K3 w - - 0 1"},
        {"men beyond the h-file are dropped", "4k3QQ/pppppppppp/8/8/8/8/8/4K3 w - -",
         "4k3/pppppppp/8/8/8/8/8/4K3 w - - 0 1"},
        {"a digit leads beyond the h-file", "4k3/7Q7R/8/8/8/8/8/4K3 w - -",
         "4k3/7Q/8/8/8/8/8/4K3 w - - 0 1"},
        {"ranks may be short", "4k/p/1p///N//4K w - -", "4k3/p7/1p6/8/8/N7/8/4K3 w - - 0 1"},
        {"ranks too many are dropped", "4k3/8/8/8/8/8/8/4K3/QQQQ/8 w - -",
         "4k3/8/8/8/8/8/8/4K3 w - - 0 1"},
        {"missing ranks are empty", "4k3/8 w - -", "4k3/8/8/8/8/8/8/8 w - - 0 1"},
        {"the side is one character", "4k2r/8/8/8/8/8/8/4K3 wk -",
         "4k2r/8/8/8/8/8/8/4K3 w k - 0 1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(WriteFen(), c.written);
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
    }
}

TEST_F(Fen, ADoubleStepAmongTooManyPawnsIsReadInSilence) {
    constexpr const char* fen = "4k3/pppppppp/p7/8/4P3/8/P7/4K3 b - e4";
    EXPECT_EQ(Printed([] { LoadFen(fen); }), "");
    EXPECT_EQ(WriteFen(), std::string(fen) + " 0 1");
}

TEST_F(Fen, CastlingRightsAreThoseThatThePlacementAllows) {
    struct Case {
        const char* fen;
        int rights;
    };
    constexpr Case cases[] = {
        {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq -", 15},
        {"r3k2r/8/8/8/8/8/8/R3K2R w xQ?k -", 2 + 4},
        {"r3k2r/8/8/8/8/8/8/1R2K2R w KQkq -", 1 + 4 + 8},
        {"r3k2r/8/8/8/8/8/4K3/R6R w KQkq -", 4 + 8},
        {"R3k2R/8/8/8/8/8/8/r3K2r w KQkq -", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fen);
        LoadFen(c.fen);
        EXPECT_EQ(CastleRights, c.rights);
    }
}

TEST_F(Fen, EnPassantFieldNamesThePawnItself) {
    struct Case {
        const char* name;
        const char* fen;
        bool accepted;
    };
    constexpr Case cases[] = {
        {"the pawn", "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f5 0 3", true},
        {"the square behind", "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f6 0 3",
         false},
        {"own pawn", "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq e5 0 3", false},
        {"field ends early", "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f", false},
        {"the other side to move", "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR b KQkq f5 0 3",
         false},
        {"no pawn but a knight", "4k3/8/8/3nP3/8/8/8/4K3 w - d5", false},
        {"home square taken", "4k3/3n4/8/3pP3/8/8/8/4K3 w - d5", false},
        {"Black, the pawn", "4k3/8/8/8/3pP3/8/8/4K3 b - e4", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(Ply, c.accepted ? 1 : 0);
        EXPECT_EQ(SetupPly, Ply);
        EXPECT_EQ(FirstDifferenceFromRecomputation(), "");
        // The double step can be taken, and only then is there an en-passant capture.
        int captures = 0;
        for (const Move move : Generated(GenerateAll))
            captures += IsEnPassant(move) && To(move) == (To(LastMove()) + From(LastMove())) / 2;
        EXPECT_EQ(captures, c.accepted ? 1 : 0);
    }
}

// A command can give the turn back to it. The pawn beside is its own then, and takes nothing.
TEST_F(Fen, ADoubleStepIsNothingToTheSideThatMadeIt) {
    LoadFen("4k3/8/8/8/3P4/8/4P3/4K3 w - -");
    Play("e2e4");
    SideToMove = WHITE;
    const std::string text = "4k3/8/8/8/3PP3/8/8/4K3 w - - 0 2";
    EXPECT_EQ(WriteFen(FenFields::OWN), text);
    EXPECT_EQ(WriteFen(FenFields::STANDARD), text);
    EXPECT_EQ(EnPassantTakers(WHITE), 0);
    constexpr int d4 = 27, e5 = 36;
    EXPECT_FALSE(IsPseudoLegal(MoveWord(d4, e5, PAWN)));
}

// Repetition and the record of the game look at the position before the double step.
TEST_F(Fen, EnPassantRecordIsAsIfThePawnHadJustStepped) {
    LoadFen("4k3/3p4/8/4P3/8/8/8/R3K3 b Q -");
    Play("d7d5");
    const UndoRecord played = UndoStack[0];
    LoadFen("4k3/8/8/3pP3/8/8/8/R3K3 w Q d5 7 30");
    const UndoRecord& record = UndoStack[0];
    EXPECT_EQ(record.move, played.move);
    EXPECT_EQ(record.posKey, played.posKey);
    EXPECT_EQ(record.fiftyCount, 0);
    EXPECT_EQ(record.castleRights, WHITE_LONG);
    EXPECT_EQ(record.materialIndex, played.materialIndex);
    EXPECT_EQ(record.pstSumA, played.pstSumA);
    EXPECT_EQ(record.pstSumB, played.pstSumB);
    EXPECT_EQ(FiftyCount, 0);
}
