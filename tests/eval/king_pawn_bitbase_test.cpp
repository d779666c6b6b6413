#include "eval/endings/king_pawn_bitbase.h"

#include <gtest/gtest.h>

// Another solver, position by position and through all promotions, once found as many.
TEST(KingPawnBitbase, WinsAsManyPositionsAsThereAre) {
    int wins = 0;
    for (int king = 0; king < 64; king++) {
        for (int pawn = 0; pawn < 64; pawn++) {
            for (int bare = 0; bare < 64; bare++) {
                for (const Colour toMove : {WHITE, BLACK})
                    wins += KingPawnWins(WHITE, king, pawn, bare, toMove);
            }
        }
    }
    EXPECT_EQ(2 * 111282, wins);
}

TEST(KingPawnBitbase, KnowsTheTextbook) {
    struct Case {
        const char* name;
        const char* men; // king, pawn, bare king
        bool winsWithMove, winsWithoutMove;
    };
    for (const Case& c : {
             Case{"opposition decides", "e5e4e7", false, true},
             Case{"king on the sixth before its pawn", "e6e5e8", true, true},
             Case{"whose pawn gives no check wins", "d6e6e8", true, false},
             Case{"king two squares before its pawn", "e4e2e6", true, true},
             Case{"rook's pawn with the king in the corner", "b6a6a8", false, false},
             Case{"rook's pawn with the king shut out", "b7a5d6", true, true},
             Case{"a race into the square", "h1a5e4", true, false},
             Case{"the pawn is lost", "h8c4d5", false, false},
         }) {
        SCOPED_TRACE(c.name);
        const auto square = [&](int i) {
            return c.men[2 * i] - 'a' + 8 * (c.men[2 * i + 1] - '1');
        };
        const int king = square(0), pawn = square(1), bare = square(2);
        EXPECT_EQ(c.winsWithMove, KingPawnWins(WHITE, king, pawn, bare, WHITE));
        EXPECT_EQ(c.winsWithoutMove, KingPawnWins(WHITE, king, pawn, bare, BLACK));
        EXPECT_EQ(c.winsWithMove, KingPawnWins(BLACK, king ^ 63, pawn ^ 63, bare ^ 63, BLACK));
    }
}
