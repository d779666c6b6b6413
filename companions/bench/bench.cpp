// The bench: how fast the engine is, and a signature of what it searches.
//
//     tarquelin-bench [depth]         searches the positions to that depth (default 9): total
//                                     nodes, milliseconds, nodes per second
//     tarquelin-bench perft [depth]   counts move trees (default 6 plies): leaves per second
//
// Every position is searched from empty tables, so the node count is the same on every machine and
// for every compiler; a change that must not alter the search must not alter it.

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "board/attacks.h"
#include "board/fen.h"
#include "board/keys.h"
#include "board/order_tables.h"
#include "board/perft.h"
#include "eval/material.h"
#include "eval/piece_square_tables.h"
#include "platform/clock.h"
#include "search/driver.h"
#include "search/hash_memory.h"
#include "search/state.h"

namespace {

constexpr int DEFAULT_DEPTH = 9;
constexpr int DEFAULT_PERFT_DEPTH = 6;

constexpr const char* Positions[] = {
    // Openings.
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1",
    "rnbqkb1r/pp2pppp/3p1n2/8/3NP3/8/PPP2PPP/RNBQKB1R w KQkq - 0 1",
    "r1bqkbnr/1ppp1ppp/p1n5/1B2p3/4P3/5N2/PPPP1PPP/RNBQK2R w KQkq - 0 1",
    "rnbqk2r/ppp1bppp/4pn2/3p2B1/2PP4/2N5/PP2PPPP/R2QKBNR w KQkq - 0 1",
    "rnbq1rk1/ppp1ppbp/3p1np1/8/2PPP3/2N2N2/PP3PPP/R1BQKB1R w KQ - 0 1",
    "rnbqkbnr/pp3ppp/4p3/2ppP3/3P4/8/PPP2PPP/RNBQKBNR w KQkq - 0 1",
    "r1bqk1nr/pppp1ppp/2n5/2b1p3/2B1P3/2P2N2/PP1P1PPP/RNBQK2R b KQkq - 0 1",
    "rnbqkb1r/ppp1pp1p/6p1/3n4/3P4/2N5/PP2PPPP/R1BQKBNR w KQkq - 0 1",
    "r1bqkb1r/pp1npppp/2p2n2/8/3PN3/8/PPP2PPP/R1BQKBNR w KQkq - 0 1",
    "rn1qkb1r/pbpp1ppp/1p2pn2/8/2PP4/2N2N2/PP2PPPP/R1BQKB1R w KQkq - 0 1",
    // Middlegames.
    "r1bq1rk1/pp2nppp/4n3/3ppP2/1b1P4/3BP3/PP2N1PP/R1BQNRK1 b - - 0 1",
    "r2q1rk1/1b1nbppp/pp1ppn2/8/2PNP3/1PN1BP2/P2QB1PP/2RR2K1 b - - 0 1",
    "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 1",
    "2rq1rk1/pb1n1ppN/4p3/1pb5/3P1Pn1/P1N5/1PQ1B1PP/R1B2RK1 b - - 0 1",
    "r1b2rk1/2q1bppp/p2ppn2/1p6/3BPP2/2N2B2/PPP1Q1PP/R4RK1 w - - 0 1",
    "2r2rk1/1bqnbppp/pp2pn2/8/2PN4/1P2B1P1/P3QPBP/R1R1N1K1 w - - 0 1",
    "3r1rk1/p3qppp/2bb4/2p5/3p4/1P2P3/PBQN1PPP/2R2RK1 w - - 0 1",
    "r3r1k1/pp3pbp/1qp3p1/2B5/2BP2b1/Q1n2N2/P4PPP/3R1K1R b - - 0 1",
    "r1bqr1k1/pp1n1pbp/2pp1np1/4p3/2PPP3/2N1BN1P/PPQ1BPP1/R3K2R w KQ - 0 1",
    "1r3rk1/2qbppbp/p2p1np1/n1pP4/2P5/2N2NP1/PPQBPPBP/1R3RK1 w - - 0 1",
    "r1b1k2r/ppppnppp/2n2q2/2b5/3NP3/2P1B3/PP3PPP/RN1QKB1R w KQkq - 0 1",
    "4rrk1/pp1n3p/3q2pQ/2p1pb2/2PP4/2P3N1/P2B2PP/4RRK1 b - - 0 1",
    // Tactics.
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1",
    "2rr3k/pp3pp1/1nnqbN1p/3pN3/2pP4/2P3Q1/PPB4P/R4RK1 w - - 0 1",
    "1k1r4/pp1b1R2/3q2pp/4p3/2B5/4Q3/PPP2B2/2K5 b - - 0 1",
    "r1b2rk1/pp1p1pp1/1b1p2B1/n1qQ2p1/8/5N2/P3RPPP/4R1K1 w - - 0 1",
    "rnb2rk1/pp2b1pp/2p1p3/4Nq2/3Pp2Q/2N1B3/PPP2PPP/R3K2R w KQ - 0 1",
    "5rk1/2p4p/2p4r/3P4/4p1b1/1Q2NqPp/PP3P1K/R4R2 b - - 0 1",
    "r1bqr3/ppp1B1kp/1b4p1/n2B4/3PQ1P1/2P5/P4P2/RN4K1 w - - 0 1",
    "1r2k1r1/pbppnp1p/1b3P2/8/Q7/B1PB1q2/P4PPP/3R2K1 w - - 0 1",
    // Endings.
    "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1",
    "8/8/p1p5/1p5p/1P5p/8/PPP2K1p/4R1rk w - - 0 1",
    "8/pp3k2/2p1qp2/2P5/5P2/1R2p1rp/PP2R3/4K2Q b - - 0 1",
    "8/3k4/p3p3/1p2P3/1P1K1P2/P7/8/8 w - - 0 1",
    "4k3/p4ppp/1p2p3/2b5/8/2B2N2/PP3PPP/4K3 w - - 0 1",
    "8/5pk1/4p1p1/7P/5P2/r5K1/8/4R3 w - - 0 1",
    "6k1/5pp1/p6p/1p1r4/1P1R4/P4P1P/6P1/6K1 w - - 0 1",
    "8/1p2k1p1/p3p2p/P2pP2P/1P1P1KP1/8/8/8 w - - 0 1",
    "3b4/5kp1/1p1p1p1p/pP1PpP1P/P1P1P3/3KN3/8/8 w - - 0 1",
    "8/8/1p1k2p1/p1pn2p1/2N5/PP3P2/2K3P1/8 w - - 0 1",
    "2q5/6k1/5p2/3p3p/3Q4/6P1/5P1P/6K1 w - - 0 1",
    "8/8/4k3/3n1n2/5P2/2B2K2/8/8 b - - 0 1",
};

struct PerftPosition {
    const char* fen;
    int pliesLess; // than asked for: its tree grows faster
};

constexpr PerftPosition PerftPositions[] = {
    {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", 0},
    {"8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", 0},
    {"r1bq1rk1/pp2nppp/4n3/3ppP2/1b1P4/3BP3/PP2N1PP/R1BQNRK1 b - - 0 1", 1},
};

} // namespace

static void StartEngine() {
    StartClock();
    InitAttackTables();
    InitKeys();
    InitPieceSquareTables();
    InitMaterialTable();
    AllocateHashTables();
}

// What an earlier search learned must not change this one.
static void Forget() {
    ClearAllHashTables();
    ClearHistory();
    ClearEvasionReplies();
    ClearCaptureStats();
    ClearPlyStates();
}

static double PerSecond(uint64_t count, int64_t milliseconds) {
    return double(count) * 1000.0 / double(milliseconds > 0 ? milliseconds : 1);
}

static void BenchSearch(int depth) {
    uint64_t nodes = 0;
    const int64_t start = ClockMilliseconds();
    for (const char* const fen : Positions) {
        LoadFen(fen);
        Forget();
        SearchFixedDepth(depth);
        nodes += uint64_t(NodeCount);
    }
    const int64_t time = ClockMilliseconds() - start;
    std::printf("depth %d, %zu positions\n", depth, std::size(Positions));
    std::printf("nodes %" PRIu64 "\ntime %" PRId64 " ms\nnodes per second %.0f\n", nodes, time,
                PerSecond(nodes, time));
}

static void BenchPerft(int depth) {
    for (const PerftPosition& position : PerftPositions) {
        const int plies = depth - position.pliesLess;
        LoadFen(position.fen);
        const int64_t start = ClockMilliseconds();
        const uint64_t leaves = CountPerft(plies);
        const int64_t time = ClockMilliseconds() - start;
        std::printf("%s\nperft %d: %" PRIu64 " leaves, %" PRId64 " ms, %.0f leaves per second\n",
                    position.fen, plies, leaves, time, PerSecond(leaves, time));
    }
}

int main(int argc, char** argv) {
    const bool perft = argc > 1 && std::strcmp(argv[1], "perft") == 0;
    const int given = argc > 1 + perft ? std::atoi(argv[1 + perft]) : 0;
    StartEngine();
    if (perft)
        BenchPerft(given > 0 ? given : DEFAULT_PERFT_DEPTH);
    else
        BenchSearch(given > 0 ? given : DEFAULT_DEPTH);
    return 0;
}
