#include "eval/king_safety.h"

#include <gtest/gtest.h>

#include "eval/figures.h"
#include "eval/parameters/personality.h"
#include "eval/pawns/pawn_structure.h"
#include "support/board_test.h"

namespace {

class KingSafety : public BoardTest {
protected:
    void TearDown() override {
        RootSide = WHITE;
        SetAggressivity(100);
        SetCowardice(100);
        BoardTest::TearDown();
    }
};

// Loads the position and returns the shelter's worth of the side.
int32_t ShelterOf(Colour side, const char* fen) {
    LoadFen(fen);
    Figures = {};
    PawnProbe();
    return KingShelter(side);
}

} // namespace

TEST_F(KingSafety, APenaltyComesFromSquareShieldAndOpenFiles) {
    struct Case {
        const char* name;
        const char* fen;
        int32_t penalty; // of White's king
        int32_t result;
    };
    for (const Case& c : {
             Case{"castled, whole shield", "3qk3/pppppppp/8/8/8/8/PPPPPPPP/3Q2K1 w - -", 0, 0},
             Case{"in the corner", "3qk3/pppppppp/8/8/8/8/PPPPPPPP/3Q3K w - -", 1, -2},
             Case{"no enemy queen", "4k3/pppppppp/8/8/8/8/PPPPPPPP/3Q3K w - -", 0, 0},
             // Half of 3 and the square's own 3 are left.
             Case{"in the centre, may castle", "3qk3/pppppppp/8/8/8/8/PPPPPPPP/R2QK2R w KQ -", 3,
                  -12},
             Case{"the queen has left", "3qk3/pppppppp/8/8/8/8/PPPPPPPP/R3K2R w KQ -", 3, -24},
             // d and e are open: 6 and 8 halved, and nothing on the wings.
             Case{"open centre, may castle", "3qk3/ppp2ppp/8/8/8/8/PPP2PPP/R2QK2R w KQ -", 10, -49},
             // The wing that is left to castle to lacks 8.
             Case{"open centre, one bad wing", "3qk3/ppp2ppp/8/8/8/8/PPP5/R2QK2R w K -", 15, -72},
             // 14 and 1, and no way out.
             Case{"open centre, may not", "3qk3/ppp2ppp/8/8/8/8/PPP2PPP/R2QK2R w - -", 18, -78},
             // Half-open files count half, pawns that have gone one step 1 and further 2.
             Case{"other files", "3qk3/pppppppp/8/8/4P3/3P4/PPP3PP/R2QK2R w - -", 12, -58},
             // The g-pawn is gone, a bishop in its place; f3 belongs to the enemy.
             Case{"a hole in the fianchetto", "3qk3/pppppp1p/8/8/8/5b2/PPPPPP1P/3Q2K1 w - -", 7,
                  -36},
             Case{"the same without the bishop", "3qk3/pppppp1p/8/8/8/8/PPPPPP1P/3Q2K1 w - -", 4,
                  -18},
             Case{"a hole on the other wing", "3qk3/p1pppppp/8/8/8/2p5/P1PPPPPP/1K1Q4 w - -", 7,
                  -36},
         }) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.result, ShelterOf(WHITE, c.fen));
        EXPECT_EQ(c.penalty, Figures.shelter_penalty[WHITE]);
    }
}

TEST_F(KingSafety, ThePersonalityWeighsTheOwnKingAndTheOther) {
    const char* const fen = "r2qk2r/ppp2ppp/8/8/8/8/PPP2PPP/R2QK2R w - -";
    SetCowardice(300);
    SetAggressivity(0);
    EXPECT_EQ(-234, ShelterOf(WHITE, fen));
    EXPECT_EQ(0, ShelterOf(BLACK, fen));
}

TEST_F(KingSafety, AnAttackGrowsWithDangerAttackersAndTheHolesBeforeTheKing) {
    LoadFen("3qk3/8/8/8/8/8/8/3QK3 w - -");
    const auto attack = [](int32_t danger, int32_t attackers, int32_t penalty) {
        Figures.Danger[BLACK] = danger;
        Figures.KingAttackers[BLACK] = attackers;
        Figures.shelter_penalty[WHITE] = penalty;
        return KingAttack(BLACK);
    };
    EXPECT_EQ(20, attack(40, 3, 8));
    EXPECT_EQ(0, attack(40, 0, 8));
    // The print leaves the attackers out and reads the danger eight entries further on.
    EXPECT_EQ(225, PrintedAttack(WHITE));
    EXPECT_EQ(81, PrintedShelter(WHITE));
    RemovePiece(59);
    EXPECT_EQ(21, attack(40, 3, 8)) << "a queen has her share already";
    // Beyond the tables the last entries hold.
    EXPECT_EQ(157, attack(100000, 99, 1000));
    EXPECT_EQ(760, PrintedAttack(WHITE));
    EXPECT_EQ(180, PrintedShelter(WHITE));
    attack(70, 1, 8);
    EXPECT_EQ(373, PrintedAttack(WHITE)) << "one more for each entry beyond the table";
}
