// The bound on one term of the evaluation.
//
// A parameter file may hold any number. Terms are summed wide and then limited, so that a few of
// them together never leave 32 bits.
#pragma once

#include <algorithm>
#include <cstdint>

// Centipawns; fits into the 16 bits of a stored score.
constexpr int32_t TERM_LIMIT = 30000;

// The sum, cut to the limit on either side of 0.
constexpr int32_t LimitTerm(int64_t sum) {
    return int32_t(std::clamp<int64_t>(sum, -TERM_LIMIT, TERM_LIMIT));
}
