#include "eval/king_safety.h"

#include <gtest/gtest.h>

#include "board/fen.h"
#include "eval/evaluate.h"
#include "eval/parameters/personality.h"
#include "eval/pawns/pawn_structure.h"
#include "support/engine_setup.h"
#include "support/flipped.h"

namespace {

class KingSafety : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
        RootSide = WHITE;
    }
    void TearDown() override {
        SetAggressivity(100);
        SetCowardice(100);
        SetStartPosition();
    }
};

// Loads the position and returns the shelter's worth of the side.
int32_t ShelterOf(Colour side, const std::string& fen) {
    LoadFen(fen.c_str());
    Figures = {};
    PawnCompute();
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
             // 14 and 1, and no way out.
             Case{"open centre, may not", "3qk3/ppp2ppp/8/8/8/8/PPP2PPP/R2QK2R w - -", 18, -78},
             // The g-pawn is gone, a bishop in its place; f3 belongs to the enemy.
             Case{"a hole in the fianchetto", "3qk3/pppppp1p/8/8/8/5b2/PPPPPP1P/3Q2K1 w - -", 7,
                  -36},
             Case{"the same without the bishop", "3qk3/pppppp1p/8/8/8/8/PPPPPP1P/3Q2K1 w - -", 4,
                  -18},
         }) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.result, ShelterOf(WHITE, c.fen));
        EXPECT_EQ(c.penalty, Figures.shelter_penalty[WHITE]);
        LoadFen(c.fen);
        const std::string flipped = FlippedFen();
        RootSide = BLACK;
        EXPECT_EQ(c.result, ShelterOf(BLACK, flipped));
        EXPECT_EQ(c.penalty, Figures.shelter_penalty[BLACK]);
        RootSide = WHITE;
    }
}

TEST_F(KingSafety, ThePersonalityWeighsTheOwnKingAndTheOther) {
    const char* const fen = "r2qk2r/ppp2ppp/8/8/8/8/PPP2PPP/R2QK2R w - -";
    SetCowardice(300);
    SetAggressivity(0);
    EXPECT_EQ(-156 * 150 / 100, ShelterOf(WHITE, fen));
    EXPECT_EQ(0, ShelterOf(BLACK, fen));
    RootSide = BLACK;
    EXPECT_EQ(0, ShelterOf(WHITE, fen));
    EXPECT_EQ(-156 * 150 / 100, ShelterOf(BLACK, fen));
}

TEST_F(KingSafety, AnAttackGrowsWithDangerAttackersAndTheHolesBeforeTheKing) {
    LoadFen("3qk3/8/8/8/8/8/8/3QK3 w - -");
    Figures = {};
    Figures.Danger[BLACK] = 40;
    Figures.KingAttackers[BLACK] = 3;
    Figures.shelter_penalty[WHITE] = 8;
    EXPECT_EQ((134 * 256 * 16 >> 15) * 10347 >> 13, KingAttack(BLACK));
    RemovePiece(59);
    EXPECT_EQ((134 * 256 * 16 >> 15) * 10922 >> 13, KingAttack(BLACK));
    // Printed without the attackers, and read eight entries further on.
    EXPECT_EQ(225 * 16 >> 4, PrintedAttack(WHITE));
    EXPECT_EQ(81, PrintedShelter(WHITE));
    Figures.KingAttackers[BLACK] = 0;
    EXPECT_EQ(0, KingAttack(BLACK));
    // Beyond the tables the last entries hold.
    Figures.Danger[BLACK] = 70;
    EXPECT_EQ(373 * 16 >> 4, PrintedAttack(WHITE));
    Figures.Danger[BLACK] = 100000;
    Figures.KingAttackers[BLACK] = 99;
    Figures.shelter_penalty[WHITE] = 1000;
    EXPECT_EQ((380 * 320 * 32 >> 15) * 10922 >> 13, KingAttack(BLACK));
    EXPECT_EQ(380 * 32 >> 4, PrintedAttack(WHITE));
    EXPECT_EQ(180, PrintedShelter(WHITE));
}
