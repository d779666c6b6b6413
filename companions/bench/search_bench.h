// Searches of fixed positions: how fast the engine is, and a signature of what it searches.
//
// Every position is searched from empty tables, so the node count is the same on every machine and
// for every compiler; a change that must not alter the search must not alter it.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr int DEFAULT_BENCH_DEPTH = 11;
constexpr int LEAST_BENCH_DEPTH = 1;
constexpr int DEEPEST_BENCH = 60;

struct BenchResult {
    size_t positions;
    uint64_t nodes;
    int64_t milliseconds;
    double nodesPerSecond;
};

// Starts clock, board, evaluation and hash tables for any bench, with the built-in parameters.
void StartBench();

BenchResult BenchSearch(int depth);

// At least a millisecond is taken to have passed.
double PerSecond(uint64_t count, int64_t milliseconds);
