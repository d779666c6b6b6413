#include "board/exchange.h"

#include "support/board_test.h"

namespace {

class Exchange : public BoardTest {};

struct Case {
    const char* name;
    const char* fen;
    const char* move;
    bool safe;
};

constexpr Case Cases[] = {
    // Answered at once.
    {"rook takes a guarded queen", "4k3/8/2p5/3q4/8/8/8/3RK3 w - -", "d1d5", true},
    // Early answers by the kind of the guard.
    {"queen takes what a pawn guards", "4k3/8/2p5/3p4/8/8/8/3QK3 w - -", "d1d5", false},
    {"knight takes what a pawn guards", "4k3/8/2p5/3p4/8/2N5/8/4K3 w - -", "c3d5", false},
    {"rook takes what a knight guards", "4k3/8/5n2/3p4/8/8/8/3RK3 w - -", "d1d5", false},
    {"own pawn behind a rook", "3rk3/3r4/8/3p4/2P5/8/8/3RK3 w - -", "d1d5", true},
    {"own pawn behind a knight", "4k3/1b6/8/3p4/4P3/2N5/8/4K3 w - -", "c3d5", true},
    // The early answers come before the own pawn is asked.
    {"pawn before own pawn", "4k3/8/2p5/3p4/4P3/2N5/8/4K3 w - -", "c3d5", false},
    {"bishop before own pawn", "4k3/1b6/8/3p4/4P3/8/8/3RK3 w - -", "d1d5", false},
    // Played out.
    {"knight for pawn", "4k3/1b6/8/3p4/8/2N5/8/4K3 w - -", "c3d5", false},
    {"queen for two rooks and a pawn", "3rk3/3r4/8/3r4/2P5/8/8/3QK3 w - -", "d1d5", true},
    {"second rook through the first", "3rk3/8/8/3p4/8/8/3R4/3RK3 w - -", "d2d5", true},
    {"queen behind the bishop", "4k3/2q5/3b4/4p3/8/5N2/8/4R1K1 w - -", "f3e5", false},
    {"bishop behind the recapturing pawn", "4r1k1/8/2n5/8/3P4/2B2N2/8/6K1 w - -", "f3e5", true},
    {"a rook does not shine through on a diagonal", "4k3/2r5/3b4/4p3/8/5N2/8/4R1K1 w - -", "f3e5",
     true},
    {"own rook behind its pawn", "4k3/8/8/2p5/8/3P4/8/3RK3 w - -", "d3d4", true},
    {"the enemy's rook behind a moving pawn", "4k3/8/8/2p5/3P4/8/8/3rK3 w - -", "d4c5", true},
    // Quiet moves.
    {"rook into a rook's file", "3r3k/8/8/8/8/8/8/3RK3 w - -", "d1d5", false},
    {"pawn into a pawn", "4k3/8/8/2p5/8/3P4/8/4K3 w - -", "d3d4", false},
    // Kings.
    {"enemy king takes a lone rook", "8/8/4k3/8/8/8/8/3RK3 w - -", "d1d5", false},
    {"enemy king may not take a guarded rook", "8/8/4k3/8/8/5B2/8/3RK3 w - -", "d1d5", true},
    {"kings on both sides", "8/8/4k3/8/2K5/8/8/3R4 w - -", "d1d5", true},
    {"own king evens a rook exchange", "3r3k/8/8/8/2K5/8/8/3R4 w - -", "d1d5", true},
    {"own king may not take into a king", "3r4/8/4k3/8/2K5/8/8/3R4 w - -", "d1d5", false},
    {"king takes what a pawn guards", "4k3/8/8/8/8/3p4/4p3/4K3 w - -", "e1e2", false},
    // Promotions.
    {"a safe knight counts as unsafe", "8/P6k/8/8/8/8/8/4K3 w - -", "a7a8n", false},
    {"queen into a rook", "7r/P5k1/8/8/8/8/8/4K3 w - -", "a7a8q", false},
    {"queen into a rook with a rook behind", "7r/P5k1/8/8/8/8/8/R3K3 w - -", "a7a8q", true},
    {"queen into a knight with a bishop behind", "8/P6k/1n6/8/8/8/8/4K2B w - -", "a7a8q", true},
    {"queen into a knight and a rook", "7r/P5k1/1n6/8/8/8/8/R3K3 w - -", "a7a8q", false},
    {"queen into the king", "8/Pk6/8/8/8/8/8/4K3 w - -", "a7a8q", false},
    // En passant: the captured field of the word is empty.
    {"en passant", "4k3/8/8/3pP3/8/8/8/4K3 w - d5", "e5d6", true},
    {"en passant into a pawn", "4k3/2p5/8/3pP3/8/8/8/4K3 w - d5", "e5d6", false},
};

} // namespace

TEST_F(Exchange, TellsLosingMovesFromOthers) {
    for (const Case& c : Cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        EXPECT_EQ(SafeExchange(MoveFromText(c.move)), c.safe);
    }
}
