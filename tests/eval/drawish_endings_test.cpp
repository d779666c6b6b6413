#include "eval/endings/drawish_endings.h"

#include <string>

#include <gtest/gtest.h>

#include "eval/pawns/pawn_structure.h"
#include "support/board_test.h"
#include "support/scratch.h"

namespace {

// Every kind of ending with a scale of its own.
class DrawishEndings : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        Params.OppositeBishopsScale = 1;
        Params.WrongRookPawnScale = 2;
        Params.RookEndingScale = 3;
        Params.NoPawnScale = 4;
        Params.QueenRookPawnScale = 5;
    }
    ScratchParameters parameters;
};

constexpr int32_t BISHOPS = 1, CORNER = 2, ROOKS = 3, PAWNLESS = 4, QUEENS = 5, NONE = 256;

} // namespace

TEST_F(DrawishEndings, AreRecognisedForTheSideThatIsAhead) {
    struct Case {
        const char* name;
        const char* men; // White is ahead
        int32_t scale;
    };
    for (const Case& c : {
             // Bishops: c1 and f8 are dark squares, c8 and f1 light ones.
             Case{"opposite bishops", "2b1k3/5ppp/8/8/8/8/PP3PPP/2B1K3", BISHOPS},
             Case{"opposite, three pawns more", "2b1k3/5ppp/8/8/8/8/PPP2PPP/2B1K3", NONE},
             Case{"opposite, rooks", "2b1k2r/5ppp/8/8/8/8/P4PPP/2B1K2R", BISHOPS},
             Case{"opposite, rooks, two pawns more", "2b1k2r/5ppp/8/8/8/8/PP3PPP/2B1K2R", NONE},
             // Rook's pawns: a8 is a light square.
             Case{"wrong bishop, king in the corner", "k7/2p5/8/8/P7/8/8/2B1K3", CORNER},
             Case{"nearer to the corner", "8/2p5/3k4/8/P7/8/8/2B1K3", CORNER},
             Case{"further from the corner", "8/2p5/2K5/8/P7/8/7k/2B5", NONE},
             Case{"wrong bishop on the other edge", "7k/2p5/8/8/7P/8/8/4KB2", CORNER},
             Case{"a knight's pawn with it", "k7/1p6/8/8/PP6/8/8/2B1K3", CORNER},
             Case{"no bishop", "k7/2p5/8/P7/P7/8/8/4K3", CORNER},
             Case{"no bishop, nearer", "3k4/2p5/8/P7/8/8/8/4K3", CORNER},
             Case{"no bishop, nearer but too late", "6k1/2p5/8/P7/8/8/8/7K", NONE},
             // Rooks.
             Case{"four against three", "r5k1/5ppp/8/8/8/8/4PPPP/R5K1", ROOKS},
             Case{"four against three, king away", "r7/k4ppp/8/8/8/8/4PPPP/R5K1", NONE},
             Case{"two pawns more", "r5k1/6pp/8/8/8/8/4PPPP/R5K1", NONE},
             Case{"king before the pawn", "4k3/8/8/3KP3/8/r7/8/7R", ROOKS},
             Case{"king cut off", "8/8/1k6/8/3KP3/r7/8/5R2", NONE},
             Case{"king beside, ours ahead", "4K3/4P1k1/8/8/8/8/r7/5R2", NONE},
             Case{"king ahead, barred late", "4Kk2/8/4P3/8/8/8/r7/6R1", NONE},
             Case{"rook before its rook's pawn", "R7/P6k/8/8/8/8/r7/6K1", ROOKS},
             Case{"and the king not in cover", "R7/P7/5k2/8/8/8/r7/6K1", NONE},
             Case{"king shut in before its pawn", "K7/P2k4/8/8/8/8/1r6/7R", ROOKS},
             Case{"held from behind", "6k1/5ppp/8/8/8/PR6/5PPP/r5K1", ROOKS},
             Case{"held from behind, our king there", "6k1/5ppp/8/8/3K4/PR6/5PPP/r7", NONE},
             Case{"guarded from behind", "6k1/5ppp/8/8/8/Pr6/5PPP/R5K1", NONE},
             Case{"a knight's pawn held from behind", "6k1/5ppp/8/8/8/1PR5/5PPP/1r4K1", NONE},
             Case{"not passed", "6k1/p4ppp/8/8/8/PR6/5PPP/r5K1", NONE},
             Case{"king comes out in time", "K7/P5k1/8/8/8/8/1r6/7R", NONE},
             // No pawns.
             Case{"rook and bishop against rook", "3rk3/p7/8/8/8/8/8/2B1K2R", PAWNLESS},
             Case{"two bishops against knight", "3nk3/p7/8/8/8/8/8/2B1KB2", NONE},
             // Queens.
             Case{"queen and rook's pawn", "k7/3q4/8/8/P7/8/8/4K2Q", QUEENS},
             Case{"king in the corner far away", "8/3q4/8/8/P7/8/7k/4K2Q", QUEENS},
         }) {
        SCOPED_TRACE(c.name);
        for (const char* toMove : {" w - -", " b - -"}) {
            LoadFen((c.men + std::string(toMove)).c_str());
            PawnProbe();
            EXPECT_EQ(c.scale, DrawishScale(-100));
        }
    }
}

TEST_F(DrawishEndings, DependOnWhoIsAhead) {
    LoadFen("3nk3/p7/8/8/8/8/8/4K2R w - -");
    EXPECT_EQ(PAWNLESS, DrawishScale(-1));
    EXPECT_EQ(NONE, DrawishScale(0));
    EXPECT_EQ(NONE, DrawishScale(1));
}
