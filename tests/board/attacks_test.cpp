#include "board/attacks.h"

#include <algorithm>
#include <random>
#include <set>

#include "board_moves.h"

namespace {

class AttackTables : public BoardTest {};

// Squares seen from a square in one direction, up to and including the first man.
Bitboard Walk(int sq, int fileStep, int rankStep, Bitboard occupied) {
    Bitboard seen = 0;
    int file = sq % 8 + fileStep;
    int rank = sq / 8 + rankStep;
    for (; file >= 0 && file < 8 && rank >= 0 && rank < 8; file += fileStep, rank += rankStep) {
        seen |= Bitboard{1} << (rank * 8 + file);
        if (occupied >> (rank * 8 + file) & 1)
            break;
    }
    return seen;
}

struct DirectionStep {
    Direction direction;
    int file;
    int rank;
};
constexpr DirectionStep DirectionSteps[] = {
    {EAST, 1, 0},       {WEST, -1, 0},        {NORTH, 0, 1},       {SOUTH, 0, -1},
    {NORTH_EAST, 1, 1}, {SOUTH_WEST, -1, -1}, {NORTH_WEST, -1, 1}, {SOUTH_EAST, 1, -1},
};

Bitboard WalkLines(int sq, Bitboard occupied) {
    return Walk(sq, 1, 0, occupied) | Walk(sq, -1, 0, occupied) | Walk(sq, 0, 1, occupied) |
           Walk(sq, 0, -1, occupied);
}

Bitboard WalkDiagonals(int sq, Bitboard occupied) {
    return Walk(sq, 1, 1, occupied) | Walk(sq, -1, -1, occupied) | Walk(sq, -1, 1, occupied) |
           Walk(sq, 1, -1, occupied);
}

// Fills the board at random, kings or none, about one square in `sparse` taken.
void ScatterMen(std::mt19937& random, unsigned sparse) {
    constexpr Piece kinds[] = {KNIGHT, PAWN, ROOK, BISHOP, QUEEN};
    ClearBoard();
    for (int sq = 0; sq < 64; sq++) {
        if (random() % sparse == 0)
            PlacePiece(sq, Colour(random() & 1), kinds[random() % 5]);
    }
}

} // namespace

TEST_F(AttackTables, ConfigurationsAreNumberedInOrderOfAppearance) {
    for (int position = 0; position < 8; position++)
        EXPECT_EQ(LineConfig[position], position);
    // Only the second square taken: its own view is that of the empty line.
    constexpr int second[8] = {8, 1, 9, 10, 11, 12, 13, 14};
    for (int position = 0; position < 8; position++)
        EXPECT_EQ(LineConfig[2 * 8 + position], second[position]) << position;
    // The ends of the line bound every view, taken or not.
    for (int position = 0; position < 8; position++)
        EXPECT_EQ(LineConfig[0x81 * 8 + position], position);
}

TEST_F(AttackTables, SeventyConfigurationsCoverAllViews) {
    constexpr size_t expected[8] = {7, 6, 10, 12, 12, 10, 6, 7};
    std::set<int> all;
    for (int position = 0; position < 8; position++) {
        std::set<int> views;
        for (int occupancy = 0; occupancy < 256; occupancy++) {
            views.insert(LineConfig[occupancy * 8 + position]);
            EXPECT_EQ(LineConfig[occupancy * 8 + position],
                      LineConfig[(occupancy ^ 1 << position) * 8 + position]);
        }
        EXPECT_EQ(views.size(), expected[position]) << position;
        all.insert(views.begin(), views.end());
    }
    EXPECT_EQ(all.size(), 70u);
    EXPECT_EQ(*all.rbegin(), 69);
}

TEST_F(AttackTables, RookInTheCornerSeesItsRank) {
    LoadFen("8/8/8/8/8/8/8/R7 w - -");
    EXPECT_EQ(CountBits(RookAttacks(Sq("a1"))), 14);
    EXPECT_EQ(RankAttackTable[LineConfig[0xff * 8] * 8], Squares("b1"));
}

TEST_F(AttackTables, SlidersSeeUpToTheFirstMan) {
    std::mt19937 random(1);
    for (int board = 0; board < 300; board++) {
        ScatterMen(random, 2 + unsigned(board) % 9);
        for (int sq = 0; sq < 64; sq++) {
            ASSERT_EQ(RookAttacks(sq), WalkLines(sq, Occupied())) << SquareText(sq) << WriteFen();
            ASSERT_EQ(BishopAttacks(sq), WalkDiagonals(sq, Occupied()))
                << SquareText(sq) << WriteFen();
        }
    }
}

TEST_F(AttackTables, LeapersStayOnTheBoard) {
    struct Case {
        const char* square;
        const char* knight;
        const char* king;
        const char* whitePawn;
        const char* blackPawn;
    };
    constexpr Case cases[] = {
        {"a1", "b3 c2", "a2 b1 b2", "b2", ""},
        {"h8", "f7 g6", "g7 g8 h7", "", "g7"},
        {"h4", "f3 f5 g2 g6", "g3 g4 g5 h3 h5", "g5", "g3"},
        {"d5", "b4 b6 c3 c7 e3 e7 f4 f6", "c4 c5 c6 d4 d6 e4 e5 e6", "c6 e6", "c4 e4"},
        {"a7", "b5 c6 c8", "a6 a8 b6 b7 b8", "b8", "b6"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.square);
        const int sq = Sq(c.square);
        EXPECT_EQ(KnightAttacks[sq], Squares(c.knight));
        EXPECT_EQ(KingAttacks[sq], Squares(c.king));
        EXPECT_EQ(PawnAttacks[WHITE][sq], Squares(c.whitePawn));
        EXPECT_EQ(PawnAttacks[BLACK][sq], Squares(c.blackPawn));
    }
    // A leap leads back, and all leaps together are as many as the board has room for.
    int knightLeaps = 0;
    int kingSteps = 0;
    for (int a = 0; a < 64; a++) {
        knightLeaps += CountBits(KnightAttacks[a]);
        kingSteps += CountBits(KingAttacks[a]);
        for (int b = 0; b < 64; b++) {
            EXPECT_EQ(KnightAttacks[a] >> b & 1, KnightAttacks[b] >> a & 1);
            EXPECT_EQ(KingAttacks[a] >> b & 1, KingAttacks[b] >> a & 1);
            EXPECT_EQ(PawnAttacks[WHITE][a] >> b & 1, PawnAttacks[BLACK][b] >> a & 1);
        }
    }
    EXPECT_EQ(knightLeaps, 336);
    EXPECT_EQ(kingSteps, 420);
}

TEST_F(AttackTables, DirectionsAndRaysAgreeWithTheEye) {
    for (int from = 0; from < 64; from++) {
        Bitboard sharing = 0;
        for (const DirectionStep& step : DirectionSteps) {
            const Bitboard ray = Walk(from, step.file, step.rank, 0);
            ASSERT_EQ(Ray[step.direction][from], ray) << from << " " << int(step.direction);
            sharing |= ray;
            for (Bitboard b = ray; b;) {
                const int to = PopLowest(b);
                ASSERT_EQ(DirectionTo[from][to], step.direction) << from << " " << to;
                ASSERT_EQ(Between[from][to],
                          Walk(from, step.file, step.rank, SquareBit(to)) & ~SquareBit(to));
            }
        }
        EXPECT_EQ(RookRays[from], WalkLines(from, 0));
        EXPECT_EQ(BishopRays[from], WalkDiagonals(from, 0));
        for (int to = 0; to < 64; to++) {
            if (sharing >> to & 1)
                continue;
            ASSERT_EQ(DirectionTo[from][to], NO_DIRECTION) << from << " " << to;
            ASSERT_EQ(Between[from][to], 0u);
        }
        EXPECT_EQ(Ray[NO_DIRECTION][from], 0u);
    }
}

TEST_F(AttackTables, PassedPawnsHaveNobodyAhead) {
    EXPECT_EQ(PassedMask[WHITE][Sq("a6")], Squares("a7 b7 a8 b8"));
    EXPECT_EQ(PassedMask[BLACK][Sq("g3")], Squares("f2 g2 h2 f1 g1 h1"));
    EXPECT_EQ(PassedMask[WHITE][Sq("d2")], (FileBB(2) | FileBB(3) | FileBB(4)) & ~Bitboard{0xffff});
    EXPECT_EQ(PassedMask[WHITE][Sq("h8")], 0u);
    EXPECT_EQ(PassedMask[BLACK][Sq("c1")], 0u);
}
