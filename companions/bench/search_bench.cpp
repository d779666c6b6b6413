#include "companions/bench/search_bench.h"

#include <iterator>

#include "board/fen.h"
#include "companions/shared/engine_start.h"
#include "companions/shared/progress.h"
#include "platform/clock.h"
#include "search/hash_memory.h"
#include "search/state.h"
#include "search/tree/driver.h"

namespace {

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
    // Middlegames, from games of the engine against itself that began at random.
    "r1bqk2r/ppp2p2/1n2pnpp/8/1Q2PB1P/2PB1N2/P1P2PP1/R3K2R b KQkq - 0 1",
    "2rb1rk1/1p4pp/p4pb1/2n1p3/7B/1P2PP2/P3N1PP/K2R1B1R w - - 0 1",
    "r1b2rk1/p2p1pp1/1p1Q2np/3Pp3/4B3/1R2B1P1/P1P1qP1P/R5K1 w - - 0 1",
    "3r1rk1/2p2ppp/1qb2n2/3Np3/1p2P3/3P1B2/1PPQ2PP/2KRR3 b - - 0 1",
    "r1bqk2r/pp3ppp/2n2n2/8/2QPp3/8/PB2PPPP/2KR1BNR b kq - 0 1",
    "r4r1k/1p3p1p/p1p2n2/P2Pp1p1/4Q3/1PB1P3/2P2PP1/R3R1K1 b - - 0 1",
    "2r2rk1/1p3ppp/1qPp1bb1/p7/2QNPp2/3P3P/PP3PB1/3R1RK1 w - - 0 1",
    "5b1r/p5pp/bkn5/5pN1/2p2p2/1P3P2/1P2B1PP/3RKR2 b - - 0 1",
    "N2qk2r/pp1bn2p/2n1p3/3p2N1/6Q1/8/P1RP1PPP/5RK1 b - - 0 1",
    "3r1rk1/pp1bbp1p/2n1p3/1N1p2q1/3P1Np1/P3P1P1/1P1QP1BP/2KR1R2 w - - 0 1",
    "1rb1k1nr/p1p2p1p/1p6/2p1P1B1/3p2P1/3P3P/PP3PB1/2R1K2R w K - 0 1",
    "4rrk1/2p1n1p1/3Qpp2/4N3/p1PPpP1b/P3P3/1P5K/R1B2R2 b - - 0 1",
    // Open fights, from such games too.
    "4r1k1/ppQ2pp1/8/1P1P3p/3R3P/4Pq2/5n1K/4B3 w - - 0 1",
    "2q1r1k1/Pp3ppp/8/5p2/1Q1P1P2/4BP2/1Pr1B2P/4R1K1 w - - 0 1",
    "r3n1k1/ppp2r2/5qp1/7p/1P6/P2B1Q2/3P1PPP/R4RK1 w - - 0 1",
    "4r1k1/3q3p/1ppBbp2/4n2P/4P1p1/1NQ5/PPP2PP1/3R2K1 w - - 0 1",
    "3rkrb1/p3q2p/4Pnp1/5p2/P4P2/1PN1Q2P/2B3P1/3RR1K1 w - - 0 1",
    "2rn1rk1/ppq4p/3p1pp1/8/P2PP3/1bBN1P2/6PP/2RQK2R w K - 0 1",
    "1r1q1rk1/2p2pp1/B4n1p/1p3N2/2RP2n1/4PP2/PPQB3b/5R1K w - - 0 1",
    "4r1k1/2p2ppp/r2q1n2/P3p3/1p1pP3/1P1P1P1P/2PQ1P2/R3R1K1 b - - 0 1",
    // Endings, from such games too.
    "3r4/p6p/2p1k1p1/2P5/p1K4P/2P5/1P3R2/8 w - - 0 1",
    "8/2r5/1k3KP1/R2R4/4p3/4P3/2r5/8 w - - 0 1",
    "8/2R1k3/3r4/8/8/5B2/5K2/8 b - - 0 1",
    "8/2P3k1/5b2/3P4/4RP1q/5K2/8/8 b - - 0 1",
    "2r5/7R/1p2k2p/1P6/3p4/5P2/1P3r1P/R6K w - - 0 1",
    "8/R5k1/5p1p/4p3/1K4PP/8/6r1/8 b - - 0 1",
    "8/5p2/5k2/4p1p1/2BbP1P1/7P/4KP2/8 w - - 0 1",
    "8/8/4k3/8/4KP1p/7P/8/8 w - - 0 1",
    "8/5NR1/8/5k2/8/r7/3K4/8 b - - 0 1",
    "8/2R4P/3k4/4p3/4P1P1/1nBK4/7r/8 w - - 0 1",
    "2R5/8/2p1r2k/1p1pPp2/5P1P/2P2K2/2P5/8 b - - 0 1",
    "r1bR4/1p6/p4Q2/4P3/2k5/6P1/5PKP/1q6 b - - 0 1",
};

} // namespace

void StartBench() {
    StartTables();
    AllocateHashTables();
}

double PerSecond(uint64_t count, int64_t milliseconds) {
    return double(count) * 1000.0 / double(milliseconds > 0 ? milliseconds : 1);
}

BenchResult BenchSearch(int depth) {
    uint64_t nodes = 0;
    Progress progress("bench", std::size(Positions), "nodes");
    uint64_t done = 0;
    const int64_t start = ClockMilliseconds();
    for (const char* const fen : Positions) {
        LoadFen(fen);
        ClearSearchMemory();
        SearchFixedDepth(depth);
        nodes += uint64_t(Running.NodeCount);
        progress.Tell(++done, nodes);
    }
    const int64_t time = ClockMilliseconds() - start;
    return {std::size(Positions), nodes, time, PerSecond(nodes, time)};
}
