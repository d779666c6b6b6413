#include "front/input/clocks.h"

#include <algorithm>

#include "search/limits.h"

namespace {

constexpr int64_t LONGEST_CLOCK = INFINITE_TIME - 1;

} // namespace

int32_t Hundredths(int64_t number, int64_t unit) {
    return int32_t(std::clamp<int64_t>(number * unit, -LONGEST_CLOCK, LONGEST_CLOCK));
}

int32_t RemainingTime(int64_t hundredths) {
    return int32_t(std::clamp<int64_t>(hundredths, 1, LONGEST_CLOCK));
}
