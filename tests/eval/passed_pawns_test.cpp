#include "eval/pawns/passed_pawns.h"

#include <string>

#include <gtest/gtest.h>

#include "eval/pawns/passer_race.h"
#include "eval/pawns/pawn_corrections.h"
#include "eval/pawns/pawn_structure.h"
#include "support/board_test.h"

namespace {

using PassedPawnsTest = BoardTest;

struct Terms {
    int32_t ending = 0;
    int32_t trade = 0;
    int32_t pawnEnding = 0;
};

// What is added for the position, without the scores of the structure.
Terms TermsOf(const std::string& fen) {
    LoadFen(fen.c_str());
    PawnProbe();
    return {EvaluatePassedPawns().ending, PawnTradeCorrection(), PawnEndingCorrection()};
}

// White's gain.
int32_t Ending(const std::string& fen) {
    return -TermsOf(fen).ending;
}

} // namespace

TEST_F(PassedPawnsTest, TheKingCatchesAPawnInWhoseSquareItStands) {
    struct Case {
        const char* name;
        const char* fen;
        int moves; // 0: the king is in time, or the other side comes much earlier
        int theirs = 0;
    };
    for (const Case& c : {
             Case{"inside", "8/8/8/P3k3/8/8/8/6K1 b - -", 0},
             Case{"inside only when it moves first: second", "8/8/8/P3k3/8/8/8/6K1 w - -", 3},
             Case{"from home it goes two steps: not to move", "8/6k1/8/8/8/8/P7/7K w - -", 5},
             Case{"from home, to move, one file too far", "8/8/8/7k/8/8/P7/7K b - -", 5},
             Case{"the own king in the way, far enough", "8/8/K7/P4k2/8/8/8/8 w - -", 4},
             Case{"escorted all the way", "3k4/5K2/8/4P3/8/8/8/8 w - -", 3},
             Case{"escorted, but taken at once", "8/5K2/8/4P3/4k3/8/8/8 b - -", 0},
             Case{"a knight could stop it", "8/8/8/P6k/8/8/8/n6K w - -", 0},
             Case{"the own knight is in the way", "8/N7/8/P6k/8/8/8/7K w - -", 0},
             Case{"the fastest of two", "8/8/P7/8/6Pk/8/8/7K w - -", 2},
             // Two that run.
             Case{"at once", "8/8/P7/8/8/7p/k6K/8 w - -", 2},
             Case{"one ply apart", "k7/8/7P/8/8/p7/8/7K w - -", 2, 2},
             Case{"three plies apart", "k7/8/7P/8/p7/8/8/7K w - -", 2},
             Case{"a king beside its pawn", "8/8/p7/8/1k5K/8/6P1/8 w - -", 0},
             Case{"that pawn comes much later", "8/8/8/p7/1k5K/8/6P1/8 b - -", 0, 4},
             Case{"a king far from it", "8/8/8/2k3P1/4p3/7K/8/8 w - -", 3},
             Case{"one ply apart, since Black begins", "k7/8/7P/8/p7/8/8/7K b - -", 2, 3},
         }) {
        SCOPED_TRACE(c.name);
        TermsOf(c.fen);
        EXPECT_EQ(c.moves, UnstoppableMoves(WHITE));
        EXPECT_EQ(c.theirs, UnstoppableMoves(BLACK));
    }
}

TEST_F(PassedPawnsTest, AnUnstoppablePawnIsNearlyAQueenTheMoreSoTheNearerItIs) {
    const int32_t stopped = Ending("8/8/8/P2k4/8/8/8/7K w - -");
    const int32_t unstoppable = Ending("8/8/8/P5k1/8/8/8/7K w - -");
    const int32_t nearer = Ending("8/8/P7/6k1/8/8/8/7K w - -");
    EXPECT_GT(unstoppable, stopped + 300);
    EXPECT_GT(nearer, unstoppable + 20);
    EXPECT_LT(nearer, 800);
}

TEST_F(PassedPawnsTest, MenAroundAPawnMakeItMoreOrLess) {
    struct Case {
        const char* name;
        const char* better;
        const char* worse;
    };
    for (const Case& c : {
             Case{"a free path before a guarded promotion", "r5k1/8/8/2P5/8/8/8/R5K1 w - -",
                  "2r3k1/8/8/2P5/8/8/8/R5K1 w - -"},
             Case{"a free step before a watched one", "2r3k1/8/8/2P5/8/8/8/R5K1 w - -",
                  "6k1/r7/2n5/8/2P5/8/8/R5K1 w - -"},
             Case{"a watched step before a blocked one", "6k1/8/r7/2P5/8/8/8/R5K1 w - -",
                  "6k1/8/2r5/2P5/8/8/8/R5K1 w - -"},
             Case{"a watched step that we guard", "6k1/8/r7/2P5/3N4/8/8/6K1 w - -",
                  "6k1/8/r7/2P5/5N2/8/8/6K1 w - -"},
             Case{"the own rook behind, not before", "r5k1/8/8/2P5/8/8/8/2R3K1 w - -",
                  "r1R3k1/8/8/2P5/8/8/8/6K1 w - -"},
             Case{"the enemy rook before, not behind", "2r3k1/8/8/2P5/8/8/8/R5K1 w - -",
                  "6k1/8/8/2P5/8/8/8/R1r3K1 w - -"},
             Case{"a free step before one's own man", "r5k1/8/8/2P5/8/8/8/N5K1 w - -",
                  "r5k1/8/2N5/2P5/8/8/8/6K1 w - -"},
             Case{"the enemy king far away", "r7/8/8/2P5/8/8/8/6Kk w - -",
                  "r3k3/8/8/2P5/8/8/8/6K1 w - -"},
             Case{"the own king near", "r5k1/8/8/1KP5/8/8/8/8 w - -",
                  "r5k1/8/8/2P5/8/8/8/K7 w - -"},
         }) {
        SCOPED_TRACE(c.name);
        EXPECT_GT(Ending(c.better), Ending(c.worse));
    }
    // Side by side two are worth more than twice one.
    EXPECT_GT(Ending("r5k1/8/8/2PP4/8/8/8/6K1 w - -"),
              Ending("r5k1/8/8/2P5/8/8/8/6K1 w - -") + Ending("r5k1/8/8/3P4/8/8/8/6K1 w - -"));
}

TEST_F(PassedPawnsTest, OnlyTheForemostPawnOfAFileIsPassed) {
    EXPECT_EQ(Ending("r5k1/8/8/2P5/8/8/8/6K1 w - -"), Ending("r5k1/8/8/2P5/8/2P5/8/6K1 w - -"));
    TermsOf("6k1/8/2P5/2p5/2P4P/8/8/P5K1 w - -");
    EXPECT_EQ(SquareBit(42) | SquareBit(31) | SquareBit(0), ForemostPassers(WHITE));
    EXPECT_EQ(0u, ForemostPassers(BLACK));
}

TEST_F(PassedPawnsTest, CorrectWhatExchangesAndFewPiecesMakeOfThem) {
    struct Case {
        const char* name;
        const char* fen;
        int32_t trade;
        int32_t pawnEnding;
    };
    for (const Case& c : {
             Case{"outside passed pawn, no pieces", "4k3/5ppp/8/8/8/8/P5PP/4K3 w - -", -72, 0},
             Case{"against a rook", "r3k3/5ppp/8/8/8/8/P5PP/4K3 w - -", -31, 0}, // 3 * 42 / 4
             Case{"healthy majority", "4k3/1p3ppp/8/8/8/8/PP4PP/4K3 w - -", -48, 0},
             Case{"one each", "4k3/1p4pp/8/8/8/8/PP5P/4K3 w - -", 0, 0},
             Case{"against bishop and knight", "4k3/8/3b1n2/8/P2P4/8/8/R3K3 w - -", 0, -10},
             Case{"against two bishops", "4k3/8/3b1b2/8/3P4/8/8/R3K3 w - -", 0, 0},
             Case{"the minor pieces' own passed pawns", "4k3/3p4/3b1n2/8/8/8/8/R3K3 w - -", 0, 0},
             Case{"two groups against a lone king", "4k3/8/8/8/8/P6P/8/R3K3 w - -", 0, -48},
             Case{"a candidate counts as a group", "4k3/6p1/8/8/8/P5PP/8/R3K3 w - -", -72, -48},
             Case{"not against a piece", "4k1n1/8/8/8/8/P6P/8/R3K3 w - -", 0, 0},
             Case{"a pawn that wins the race", "8/8/8/P5k1/8/8/8/7K w - -", 0, -150},
             Case{"the same with a piece of one's own", "8/8/8/P5k1/8/8/8/B6K w - -", 0, 0},
             Case{"both win it", "k7/8/7P/8/8/p7/8/7K w - -", 0, 0},
         }) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.trade, TermsOf(c.fen).trade);
        EXPECT_EQ(c.pawnEnding, TermsOf(c.fen).pawnEnding);
    }
}
