// Counting the leaves of the move tree: the test of generators, make and unmake.
#pragma once

#include <cstdint>

// Deepest count that is attempted; the trees below it could not be finished anyway.
constexpr int MAX_PERFT_DEPTH = 60;

// Moves in the tree of that depth (1..MAX_PERFT_DEPTH; otherwise 0). Castling out of check is
// counted, since the generator does not ask whether the king stands in check: counts are
// compared with earlier versions by users who know this.
//
// `wanted` is asked now and then; once it says no the count is given up, and what is returned means
// nothing.
uint64_t CountPerft(
    int depth, bool (*wanted)() = [] { return true; });
