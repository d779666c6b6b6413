#include "eval/material/material.h"

#include <string>

#include <gtest/gtest.h>

#include "support/board_test.h"

using MaterialTest = BoardTest;

TEST_F(MaterialTest, TellsWhoCannotWinAndWhoseKingIsSafe) {
    struct Case {
        const char* men;
        bool whiteCannotWin, blackCannotWin, whiteEnding, blackEnding;
    };
    for (const Case& c : {
             Case{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", false, false, false, false},
             Case{"4k3/8/8/8/8/8/8/4KN2", true, true, true, true},
             Case{"4k3/8/8/8/8/8/8/4KNN1", true, true, true, true},
             Case{"4k3/8/8/8/8/8/8/4KBN1", false, true, true, true},
             Case{"4k3/p7/8/8/8/8/8/4KNN1", true, false, true, true},
             Case{"4k3/8/8/8/8/8/8/4KQ2", false, true, true, true},
             Case{"4k3/8/8/8/8/8/8/4KQN1", false, true, true, false},
             Case{"rr2k3/nn6/8/8/8/8/8/4K3", true, false, false, true},
             Case{"rbb1k3/n7/8/8/8/8/8/4KN2", true, false, true, true},
             Case{"rrb1k3/8/8/8/8/8/8/3KRRBB", false, false, true, false},
         }) {
        SCOPED_TRACE(c.men);
        LoadFen((std::string(c.men) + " w - -").c_str());
        const MaterialEntry entry = CurrentMaterial();
        EXPECT_EQ(c.whiteCannotWin, (entry.flags[WHITE] & MATERIAL_CANNOT_WIN) != 0);
        EXPECT_EQ(c.blackCannotWin, (entry.flags[BLACK] & MATERIAL_CANNOT_WIN) != 0);
        EXPECT_EQ(c.whiteEnding, (entry.flags[WHITE] & MATERIAL_ENDING) != 0);
        EXPECT_EQ(c.blackEnding, (entry.flags[BLACK] & MATERIAL_ENDING) != 0);
    }
}

TEST_F(MaterialTest, ThePhaseGoesFromAllMenToNone) {
    struct Case {
        const char* men;
        int current, white, black;
    };
    for (const Case& c : {
             Case{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", 0, 0, 0},
             Case{"4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3", 256, 256, 256},
             Case{"r1bqkbnr/8/8/8/8/8/8/RNBQKBNR", 11, 0, 21},
             Case{"4k3/8/8/8/8/8/8/R3K3", 235, 213, 256},
             // More than a full set does not push the phase below 0.
             Case{"4k3/8/8/8/8/8/8/QQQQKQQQ", 0, 0, 256},
             Case{"rnbqkbnr/8/8/8/8/8/8/RNBQKBNQ", 0, 0, 0},
         }) {
        SCOPED_TRACE(c.men);
        LoadFen((std::string(c.men) + " w - -").c_str());
        const MaterialEntry entry = CurrentMaterial();
        EXPECT_EQ(c.current, entry.currentPhase);
        EXPECT_EQ(c.white, entry.whitePhase);
        EXPECT_EQ(c.black, entry.blackPhase);
    }
}

TEST_F(MaterialTest, MenThatTheTableCannotCountAreCountedOnTheBoard) {
    LoadFen("4k3/8/8/8/8/8/8/QQQ1K3 w - -");
    ASSERT_EQ(MATERIAL_INVALID, MaterialIndex);
    const MaterialEntry queens = CurrentMaterial();
    EXPECT_EQ(128, queens.currentPhase);
    EXPECT_EQ(0, queens.flags[BLACK] & MATERIAL_ENDING);
    EXPECT_EQ(MATERIAL_CANNOT_WIN, queens.flags[BLACK] & MATERIAL_CANNOT_WIN);

    // So many pawns make a signature that lies beyond the table.
    LoadFen("4k3/PPPPPPPP/PP6/pppppppp/8/8/8/R3K3 w - -");
    ASSERT_GT(MaterialIndex, MATERIAL_INVALID);
    const MaterialEntry pawns = CurrentMaterial();
    EXPECT_EQ(235, pawns.currentPhase);
    EXPECT_EQ(213, pawns.whitePhase);
}

TEST_F(MaterialTest, TheEndingOfTheTableIsThatOfTheBoard) {
    WalkRandomGames(60, [] {
        for (const Colour side : {WHITE, BLACK}) {
            const bool inTable = (CurrentMaterial().flags[side] & MATERIAL_ENDING) != 0;
            ASSERT_EQ(InEnding(side), inTable) << WriteFen();
        }
    });
}
