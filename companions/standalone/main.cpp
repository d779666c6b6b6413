// The program for test farms: engine and bench in one, which needs no file beside it.
//
// A farm starts many at once in a directory that it chose. So the values are carried within, and
// nothing is played from or learned into a book unless the tester names one.
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "companions/bench/search_bench.h"
#include "front/start.h"

static constexpr int BAD_USAGE = 2;

static bool ReadDepth(std::string_view word, int& depth) {
    const char* const end = word.data() + word.size();
    const auto [stopped, error] = std::from_chars(word.data(), end, depth);
    return error == std::errc() && stopped == end && depth >= LEAST_BENCH_DEPTH &&
           depth <= DEEPEST_BENCH;
}

// Farms read the last line.
static int PrintBench(int depth) {
    StartBench();
    const BenchResult bench = BenchSearch(depth);
    std::printf("%" PRIu64 " nodes %.0f nps\n", bench.nodes, bench.nodesPerSecond);
    return 0;
}

int main(int argc, char** argv) {
    if (argc <= 1)
        return RunEngine({.defaultBook = false, .bookLearning = false});
    int depth = DEFAULT_BENCH_DEPTH;
    if (std::strcmp(argv[1], "bench") == 0 &&
        (argc == 2 || (argc == 3 && ReadDepth(argv[2], depth))))
        return PrintBench(depth);
    std::fprintf(stderr, "usage: %s [bench [DEPTH]]\n", argv[0]);
    return BAD_USAGE;
}
