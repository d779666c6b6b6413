#include "board/moves/perft.h"

#include "board/moves/legal_moves.h"
#include "support/board_test.h"

namespace {

class Perft : public BoardTest {};
class PerftDeep : public BoardTest {};

// Legal leaves of a tree, and what is counted here where that differs: castling out of check is
// counted along with what follows from it. The differences were found with a plain generator that
// allows just that; without it, it agrees with the legal counts.
struct Count {
    uint64_t legal;
    uint64_t withCastlingOutOfCheck = 0;

    uint64_t Expected() const {
        return withCastlingOutOfCheck != 0 ? withCastlingOutOfCheck : legal;
    }
};

constexpr int ROW_DEPTHS = 8;

struct Row {
    const char* name;
    const char* fen;
    Count counts[ROW_DEPTHS]; // from depth 1 on; zero where no more are known
};

constexpr Row Rows[] = {
    {"start position",
     "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -",
     {{20}, {400}, {8902}, {197281}, {4865609}, {119060324}}},
    {"every kind of move",
     "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -",
     {{48}, {2039}, {97862}, {4085603, 4086290}, {193690690, 193737613}}},
    {"rank pin against en passant",
     "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - -",
     {{14}, {191}, {2812}, {43238}, {674624}, {11030083}}},
    {"castling under promotion",
     "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq -",
     {{6}, {264}, {9467}, {422333}, {15833292}}},
    {"pawn takes on the back rank",
     "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ -",
     {{44}, {1486}, {62379, 62478}, {2103487, 2107464}, {89941194, 90219128}}},
    {"promotions everywhere",
     "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - -",
     {{24}, {496}, {9483}, {182838}, {3605103}, {71179139}}},
    {"bare rooks and kings",
     "r3k2r/8/8/8/8/8/8/R3K2R w KQkq -",
     {{26},
      {568, 570},
      {13744, 13792},
      {314346, 315106},
      {7594526, 7616560},
      {179862938, 180413095}}},
    {"bishops on the castling paths",
     "r3k2r/1b4bq/8/8/8/8/7B/R3K2R w KQkq -",
     {{26}, {1141, 1142}, {27826, 27943}, {1274206, 1281104}}},
    {"en passant discovers on the rank",
     "8/8/8/8/k2Pp2Q/8/8/3K4 b - d4",
     {{6}, {136}, {863}, {20471}, {117741}}},
    {"en passant discovers on the diagonal",
     "8/5bk1/8/2Pp4/8/1K6/8/8 w - d5",
     {{8}, {104}, {736}, {9287}, {62297}, {824064}}},
    {"en passant from both sides",
     "4k3/8/8/2PpP3/8/8/8/4K3 w - d5",
     {{9}, {47}, {376}, {2321}, {19352}, {118938}}},
    {"stalemate and mate",
     "8/k1P5/8/1K6/8/8/8/8 w - -",
     {{10}, {25}, {268}, {926}, {10857}, {43261}, {567584}}},
    {"double check", "8/8/2k5/5q2/5n2/8/5K2/8 b - -", {{37}, {183}, {6559}, {23527}, {811573}}},
    {"discovered and double checks",
     "r1bqk2r/pppp1ppp/2n2n2/1B2N3/1b2P3/2N5/PPPP1PPP/R1BQ1RK1 w kq -",
     {{37}, {1216}, {44770}, {1454385, 1454767}}},
    {"nine queens",
     "3Q4/1Q4Q1/4Q3/2Q4R/Q4Q2/3Q4/1Q4Rp/1K1BBNNk w - -",
     {{218}, {20}, {4072}, {15903}}},
    {"en passant takes the checker",
     "8/8/8/1k6/2Pp4/8/8/4K2B b - c4",
     {{8}, {100}, {584}, {8298}, {50845}, {712453}}},
};

// Trees up to this size are walked in every kind of build, larger ones are the deep test's.
constexpr uint64_t SMALL_TREE = 1000000;

void CountTrees(bool small) {
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.name);
        LoadFen(row.fen);
        const std::string before = WriteFen();
        for (int i = 0; i < ROW_DEPTHS; i++) {
            const uint64_t expected = row.counts[i].Expected();
            if (expected == 0)
                break;
            if ((expected <= SMALL_TREE) == small) {
                EXPECT_EQ(CountPerft(i + 1), expected) << "depth " << i + 1;
            }
        }
        EXPECT_EQ(WriteFen(), before);
    }
}

uint64_t CountLegal(int depth) {
    const int start = MoveStackTop;
    const int end = start + GenerateLegalMoves();
    uint64_t leaves = depth > 1 ? 0 : uint64_t(end - start);
    for (int i = start; i < end && depth > 1; i++) {
        MakeMove(MoveStack[i].move, true);
        leaves += CountLegal(depth - 1);
        UnmakeMove();
    }
    MoveStackTop = start;
    return leaves;
}

} // namespace

TEST_F(Perft, SmallTreesHaveTheirKnownSizes) {
    CountTrees(true);
}

TEST_F(PerftDeep, LargeTreesHaveTheirKnownSizes) {
    CountTrees(false);
}

TEST_F(Perft, LegalMovesAloneGiveTheLegalCounts) {
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.name);
        LoadFen(row.fen);
        for (int i = 0; i < ROW_DEPTHS && row.counts[i].legal != 0; i++) {
            if (row.counts[i].legal <= 400000) {
                EXPECT_EQ(CountLegal(i + 1), row.counts[i].legal) << "depth " << i + 1;
            }
        }
    }
}
