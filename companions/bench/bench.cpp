// The bench: how fast the engine and its parts are, and a signature of what it searches.

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <optional>
#include <string>

#include "board/fen.h"
#include "board/moves/perft.h"
#include "book_bench.h"
#include "companions/shared/command_line.h"
#include "platform/clock.h"
#include "search_bench.h"
#include "tablebase_bench.h"

namespace {

constexpr int DEFAULT_PERFT_DEPTH = 6;
constexpr int LEAST_PERFT_DEPTH = 1;
constexpr int DEEPEST_PERFT = 12; // far more leaves than anybody waits for

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

static void PrintSearchBench(int depth) {
    const BenchResult bench = BenchSearch(depth);
    std::printf("depth %d, %zu positions\n", depth, bench.positions);
    std::printf("nodes %" PRIu64 "\ntime %" PRId64 " ms\nnodes per second %.0f\n", bench.nodes,
                bench.milliseconds, bench.nodesPerSecond);
}

static void BenchPerft(int depth) {
    for (const PerftPosition& position : PerftPositions) {
        const int plies = std::max(depth - position.pliesLess, 1);
        LoadFen(position.fen);
        const int64_t start = ClockMilliseconds();
        const uint64_t leaves = CountPerft(plies);
        const int64_t time = ClockMilliseconds() - start;
        std::printf("%s\nperft %d: %" PRIu64 " leaves, %" PRId64 " ms, %.0f leaves per second\n",
                    position.fen, plies, leaves, time, PerSecond(leaves, time));
    }
}

static CLI::Option& AddDepth(CLI::App& command, int& depth, int least, int most) {
    return *command.add_option("DEPTH", depth, "plies")
                ->option_text("[" + std::to_string(depth) + "]")
                ->check(CLI::Range(least, most));
}

int main(int argc, char** argv) {
    CLI::App program("Tells how fast the engine is, and a signature of what it searches.",
                     "tarquelin-bench");
    int depth = DEFAULT_BENCH_DEPTH;
    CLI::Option& searchDepth = AddDepth(program, depth, LEAST_BENCH_DEPTH, DEEPEST_BENCH);
    int perftDepth = DEFAULT_PERFT_DEPTH;
    CLI::App& perft = *program.add_subcommand("perft", "Counts move trees: leaves per second");
    AddDepth(perft, perftDepth, LEAST_PERFT_DEPTH, DEEPEST_PERFT);
    std::string book;
    CLI::App& bookBench = *program.add_subcommand("book", "Looks positions up in an opening book");
    bookBench.add_option("FILE", book, "the book")->required()->option_text(" ");
    std::string directories;
    CLI::App& tablebaseBench = *program.add_subcommand("tablebase", "Probes endgame tablebases");
    tablebaseBench.add_option("DIRECTORIES", directories, "separated by semicolons")
        ->required()
        ->option_text(" ");
    program.require_subcommand(0, 1);
    for (CLI::App* const command : {&perft, &bookBench, &tablebaseBench})
        command->excludes(&searchDepth);
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    StartBench();
    if (bookBench.parsed())
        return BenchBook(book.c_str()) ? 0 : 1;
    if (tablebaseBench.parsed())
        return BenchTablebases(directories.c_str()) ? 0 : 1;
    if (perft.parsed())
        BenchPerft(perftDepth);
    else
        PrintSearchBench(depth);
    return 0;
}
