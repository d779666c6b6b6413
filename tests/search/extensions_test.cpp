#include "search/tree/extensions.h"

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/moves/make_move.h"
#include "board/notation.h"
#include "board/position.h"
#include "search/state.h"

namespace {

struct Case {
    const char* name;
    const char* fen;
    const char* move;
    int32_t extension; // in an open window
};

constexpr Case Cases[] = {
    {"a quiet move", "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1", "e1d1", 0},
    {"a piece that leaves one behind", "4k3/8/8/3n4/8/4N3/4P3/4K3 w - - 0 1", "e3d5", 0},
    {"the last piece, by a pawn", "4k3/8/8/3n4/4P3/8/8/4K3 w - - 0 1", "e4d5", ONE_PLY},
    {"a passed pawn to the sixth", "4k3/8/8/P7/8/8/8/4K3 w - - 0 1", "a5a6", ONE_PLY},
    {"two pieces forked by a pawn", "4k3/1npn4/8/2P5/8/8/8/4K3 w - - 0 1", "c5c6", ONE_PLY},
    {"a passed pawn into a pawn's reach", "4k3/3p4/8/2P5/8/8/8/4K3 w - - 0 1", "c5c6", 0},
    {"two pieces forked", "3n4/6k1/8/8/7n/8/8/3R2K1 w - - 0 1", "d1d4", ONE_PLY},
    {"one of them guarded, and the rook seen twice", "3nk3/8/8/8/7n/8/8/3R2K1 w - - 0 1", "d1d4",
     0},
    {"forked by a rook that a pawn takes", "3n4/6k1/8/2p5/7n/8/8/3R2K1 w - - 0 1", "d1d4", 0},
    {"forked by a queen", "3n4/6k1/8/8/8/n7/8/3Q2K1 w - - 0 1", "d1d6", ONE_PLY},
    {"two pawns", "6k1/8/8/1p3p2/8/8/8/1N4K1 w - - 0 1", "b1c3", 0},
};

TEST(Extensions, GoToMovesThatChangeTheGame) {
    for (const Case& c : Cases) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        const Move move = MoveFromText(c.move);
        EXPECT_EQ(ExtensionOf(move, false, true), c.extension);
        EXPECT_EQ(ExtensionOf(move, false, false), c.extension / 2);
        EXPECT_EQ(ExtensionOf(move, true, true), ONE_PLY);
        EXPECT_EQ(WriteFen(), c.fen);
    }
}

TEST(Extensions, GoToRecapturesOfEqualMen) {
    LoadFen("r3k3/8/8/3n4/8/4N3/8/3RK3 b - - 0 1");
    MakeMove(MoveFromText("d5e3"), true);
    EXPECT_EQ(ExtensionOf(MoveFromText("e1d2"), false, true), 0);
    LoadFen("r3k3/3r4/8/8/8/8/8/3RK3 b - - 0 1");
    MakeMove(MoveFromText("d7d1"), true);
    EXPECT_EQ(ExtensionOf(MoveFromText("e1d1"), false, true), 45);
    EXPECT_EQ(ExtensionOf(MoveFromText("e1d1"), false, false), 22);
    SetStartPosition();
}

} // namespace
