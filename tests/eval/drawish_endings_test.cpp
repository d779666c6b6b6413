#include "eval/endings/drawish_endings.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "eval/pawns/pawn_structure.h"
#include "support/flipped.h"
#include "support/scratch.h"

namespace {

// Every kind of ending with a scale of its own.
class DrawishEndings : public testing::Test {
protected:
    void SetUp() override {
        Params.OppositeBishopsScale = 1;
        Params.WrongRookPawnScale = 2;
        Params.RookEndingScale = 3;
        Params.NoPawnScale = 4;
        Params.QueenRookPawnScale = 5;
    }
    void TearDown() override {
        SetStartPosition();
    }
    ScratchParameters parameters;
};

void ProbePawns() {
    int32_t unused = 0;
    PawnProbe(unused, unused);
}

constexpr int32_t BISHOPS = 1, CORNER = 2, ROOKS = 3, PAWNLESS = 4, QUEENS = 5, NONE = 256;

} // namespace

TEST_F(DrawishEndings, AreRecognisedForTheSideThatIsAhead) {
    struct Case {
        const char* name;
        const char* men; // White is ahead
        int32_t scale;
    };
    for (const Case& c : {
             Case{"start", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", NONE},
             Case{"pawns", "4k3/5ppp/8/8/8/8/PP3PPP/4K3", NONE},
             // Bishops: c1 and f8 are dark squares, c8 and f1 light ones.
             Case{"opposite bishops", "2b1k3/5ppp/8/8/8/8/PP3PPP/2B1K3", BISHOPS},
             Case{"bishops of one colour", "4kb2/5ppp/8/8/8/8/PP3PPP/2B1K3", NONE},
             Case{"opposite, three pawns more", "2b1k3/5ppp/8/8/8/8/PPP2PPP/2B1K3", NONE},
             Case{"opposite, rooks", "2b1k2r/5ppp/8/8/8/8/P4PPP/2B1K2R", BISHOPS},
             Case{"opposite, rooks, two pawns more", "2b1k2r/5ppp/8/8/8/8/PP3PPP/2B1K2R", NONE},
             Case{"opposite, a knight more", "2b1k3/5ppp/8/8/8/8/P4PPP/2B1K1N1", NONE},
             Case{"opposite, queens", "2bqk3/5ppp/8/8/8/8/P4PPP/2BQK3", NONE},
             Case{"bishop against knight", "2n1k3/5ppp/8/8/8/8/P4PPP/2B1K3", NONE},
             // Rook's pawns: a8 is a light square.
             Case{"wrong bishop, king in the corner", "k7/2p5/8/8/P7/8/8/2B1K3", CORNER},
             Case{"second square of the file", "8/k1p5/8/8/P7/8/8/2B1K3", CORNER},
             Case{"second square of the rank", "1k6/2p5/8/8/P7/8/8/2B1K3", CORNER},
             Case{"nearer to the corner", "8/2p5/3k4/8/P7/8/8/2B1K3", CORNER},
             Case{"further from the corner", "8/2p5/2K5/8/P7/8/7k/2B5", NONE},
             Case{"right bishop", "k7/2p5/8/8/P7/8/8/4KB2", NONE},
             Case{"wrong bishop on the other edge", "7k/2p5/8/8/7P/8/8/4KB2", CORNER},
             Case{"right bishop on the other edge", "7k/2p5/8/8/7P/8/8/2B1K3", NONE},
             Case{"a knight's pawn with it", "k7/1p6/8/8/PP6/8/8/2B1K3", CORNER},
             Case{"a knight's pawn, king outside", "8/1p6/8/2k5/PP6/8/8/2B1K3", NONE},
             Case{"a bishop's pawn with it", "k7/1p6/8/8/P1P5/8/8/2B1K3", NONE},
             Case{"pawns on both edges", "k7/1p6/8/8/P6P/8/8/2B1K3", NONE},
             Case{"no bishop", "k7/2p5/8/P7/P7/8/8/4K3", CORNER},
             Case{"no bishop, nearer", "3k4/2p5/8/P7/8/8/8/4K3", CORNER},
             Case{"no bishop, nearer but too late", "6k1/2p5/8/P7/8/8/8/7K", NONE},
             Case{"no bishop, a knight's pawn", "k7/2p5/8/PP6/8/8/8/4K3", NONE},
             Case{"a knight", "k7/2p5/8/8/P7/8/8/2N1K3", NONE},
             Case{"a rook", "k7/2p5/8/8/P7/8/8/2R1K3", NONE},
             // Rooks.
             Case{"four against three", "r5k1/5ppp/8/8/8/8/4PPPP/R5K1", ROOKS},
             Case{"four against three, king away", "r7/k4ppp/8/8/8/8/4PPPP/R5K1", NONE},
             Case{"an outside pawn", "r5k1/5ppp/8/8/8/8/P4PPP/R5K1", NONE},
             Case{"two pawns more", "r5k1/6pp/8/8/8/8/4PPPP/R5K1", NONE},
             Case{"two rooks each", "rr4k1/5ppp/8/8/8/8/4PPPP/RR4K1", NONE},
             Case{"king before the pawn", "4k3/8/8/3KP3/8/r7/8/7R", ROOKS},
             Case{"king cut off", "8/8/1k6/8/3KP3/r7/8/5R2", NONE},
             Case{"king beside, ours ahead", "4K3/4P1k1/8/8/8/8/r7/5R2", NONE},
             Case{"king ahead, ours beside", "5k2/8/3KP3/8/8/8/r7/4R3", ROOKS},
             Case{"king ahead, barred late", "4Kk2/8/4P3/8/8/8/r7/6R1", NONE},
             Case{"rook before its rook's pawn", "R7/P6k/8/8/8/8/r7/6K1", ROOKS},
             Case{"and the king not in cover", "R7/P7/5k2/8/8/8/r7/6K1", NONE},
             Case{"king shut in before its pawn", "K7/P2k4/8/8/8/8/1r6/7R", ROOKS},
             Case{"held from behind", "6k1/5ppp/8/8/8/PR6/5PPP/r5K1", ROOKS},
             Case{"held from behind, our king there", "6k1/5ppp/8/8/3K4/PR6/5PPP/r7", NONE},
             Case{"guarded from behind", "6k1/5ppp/8/8/8/Pr6/5PPP/R5K1", NONE},
             Case{"held from before", "r5k1/5ppp/8/8/8/PR6/5PPP/6K1", NONE},
             Case{"a knight's pawn held from behind", "6k1/5ppp/8/8/8/1PR5/5PPP/1r4K1", NONE},
             Case{"not passed", "6k1/p4ppp/8/8/8/PR6/5PPP/r5K1", NONE},
             Case{"king comes out in time", "K7/P5k1/8/8/8/8/1r6/7R", NONE},
             // No pawns.
             Case{"rook and bishop against rook", "3rk3/p7/8/8/8/8/8/2B1K2R", PAWNLESS},
             Case{"rook against knight", "3nk3/p7/8/8/8/8/8/4K2R", PAWNLESS},
             Case{"queen against two minors", "3nkb2/p7/8/8/8/8/8/4K2Q", PAWNLESS},
             Case{"queen against rook", "3rk3/p7/8/8/8/8/8/4K2Q", NONE},
             Case{"rook against pawns", "4k3/pp6/8/8/8/8/8/4K2R", NONE},
             Case{"two bishops against knight", "3nk3/p7/8/8/8/8/8/2B1KB2", NONE},
             Case{"two bishops against bishop", "2b1k3/p7/8/8/8/8/8/2B1KB2", PAWNLESS},
             // Queens.
             Case{"queen and rook's pawn", "k7/3q4/8/8/P7/8/8/4K2Q", QUEENS},
             Case{"king in the corner far away", "8/3q4/8/8/P7/8/7k/4K2Q", QUEENS},
             Case{"king in the middle", "8/3q4/8/3k4/P7/8/8/4K2Q", NONE},
             Case{"queen and knight's pawn", "k7/3q4/8/8/1P6/8/8/4K2Q", NONE},
             Case{"queens and rooks", "k7/3qr3/8/8/P7/8/8/4KR1Q", NONE},
         }) {
        SCOPED_TRACE(c.name);
        for (const char* toMove : {" w - -", " b - -"}) {
            LoadFen((c.men + std::string(toMove)).c_str());
            ProbePawns();
            EXPECT_EQ(c.scale, DrawishScale(-100));
            LoadFen(FlippedFen().c_str());
            ProbePawns();
            EXPECT_EQ(c.scale, DrawishScale(100));
        }
    }
}

TEST_F(DrawishEndings, DependOnWhoIsAhead) {
    LoadFen("3nk3/p7/8/8/8/8/8/4K2R w - -");
    EXPECT_EQ(PAWNLESS, DrawishScale(-1));
    EXPECT_EQ(NONE, DrawishScale(0));
    EXPECT_EQ(NONE, DrawishScale(1));
}

// Any men anywhere, kings too many or none, pawns on the outermost ranks.
TEST_F(DrawishEndings, PreferNoColourOnAnyBoard) {
    std::mt19937 random(11);
    const auto below = [&](unsigned bound) { return random() % bound; };
    int found[6] = {};
    for (int i = 0; i < 60000; i++) {
        Ply = SetupPly = 0;
        CastleRights = 0;
        ClearBoard();
        const unsigned men = below(i % 50 == 0 ? 60 : 7);
        const Piece favourite = Piece(std::string("\2\5\6\7")[below(4)]);
        for (unsigned man = 0; man < men; man++) {
            const int sq = int(below(64));
            const int file = below(2) ? int(below(2)) * 7 : FileOf(sq);
            const Colour side = Colour(man & 1);
            if (man < 2 && Board[sq] == EMPTY)
                PlacePiece(sq, side, favourite);
            else if (Board[sq - FileOf(sq) + file] == EMPTY)
                PlacePiece(sq - FileOf(sq) + file, side, below(15) ? PAWN : KING);
        }
        for (const Colour side : {WHITE, BLACK}) {
            const int sq = int(below(64));
            if (Board[sq] == EMPTY)
                PlacePiece(sq, side, KING);
        }
        const std::string fen = WriteFen();
        ProbePawns();
        const int32_t scores[] = {DrawishScale(1), DrawishScale(-1)};
        LoadFen(FlippedFen().c_str());
        ProbePawns();
        ASSERT_EQ(scores[0], DrawishScale(-1)) << fen;
        ASSERT_EQ(scores[1], DrawishScale(1)) << fen;
        found[scores[0] == NONE ? 0 : scores[0]]++;
    }
    for (const int count : found)
        EXPECT_GT(count, 100);
}
