#include "book/book_keys.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/position.h"
#include "support/engine_setup.h"

// Books that were written once must be found for ever: nothing but a new file format may change
// these numbers.
TEST(BookKeys, NeverChange) {
    SetUpEngineTables();
    struct Case {
        const char* fen;
        BookKeys keys;
    };
    const Case cases[] = {
        {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", {-1516375392, -912036435}},
        {"rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e4 0 1", {-1894120875, -1090542422}},
        {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
         {771548926, 948234312}},
        {"8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 b - - 0 1", {1701849239, -1154201088}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fen);
        LoadFen(c.fen);
        EXPECT_EQ(KeysOfPosition().a, c.keys.a);
        EXPECT_EQ(KeysOfPosition().b, c.keys.b);
    }
    SetStartPosition();
}

TEST(BookKeys, KnowTheSideToMoveButNoRights) {
    SetUpEngineTables();
    SetStartPosition();
    const BookKeys white = KeysOfPosition();
    CastleRights = 0;
    EXPECT_EQ(KeysOfPosition(), white);
    SideToMove = BLACK;
    EXPECT_EQ(KeysOfPosition().a ^ white.a, 131313131);
    EXPECT_EQ(KeysOfPosition().b, white.b);
    SetStartPosition();
}

TEST(BookKeys, OfAMillionPositionsAreAllDifferent) {
    SetUpEngineTables();
    constexpr size_t count = 1000000;
    constexpr Piece kinds[] = {KING, KNIGHT, PAWN, ROOK, BISHOP, QUEEN};
    std::mt19937 numbers(1);
    std::vector<BookKeys> keys;
    for (size_t i = 0; i < count; i++) {
        ClearBoard();
        // Eight men at least: fewer might come to stand on the same squares by chance.
        for (const size_t men = 8 + numbers() % 25; size_t(MenCount) < men;) {
            const auto square = int(numbers() % 64);
            if (Board[square] == EMPTY)
                PlacePiece(square, Colour(numbers() & 1), kinds[numbers() % 6]);
        }
        SideToMove = Colour(numbers() & 1);
        keys.push_back(KeysOfPosition());
    }
    SetStartPosition();
    std::ranges::sort(keys);
    EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end());
}
