#include "book/book_keys.h"

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/position.h"

// Books that were written once must be found for ever: nothing but a new file format may change
// these numbers.
TEST(BookKeys, NeverChange) {
    const struct {
        const char* fen;
        BookKeys keys;
    } cases[] = {
        {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w - - 0 1", {-1516375392, -912036435}},
        {"rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e4 0 1", {-1894120875, -1090542422}},
        {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
         {771548926, 948234312}},
        {"8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 b - - 0 1", {1701849239, -1154201088}},
    };
    for (const auto& c : cases) {
        LoadFen(c.fen);
        EXPECT_TRUE(KeysOfPosition() == c.keys) << c.fen;
    }
    SetStartPosition();
}
