#include "progress.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "platform/clock.h"

namespace {

constexpr int64_t INTERVAL = 2000; // milliseconds

} // namespace

Progress::Progress(const char* whatIsDone, uint64_t totalWork)
    : what(whatIsDone), total(std::max<uint64_t>(totalWork, 1)),
      nextTime(ClockMilliseconds() + INTERVAL) {}

bool Progress::Due() {
    const int64_t now = ClockMilliseconds();
    if (now < nextTime)
        return false;
    nextTime = now + INTERVAL;
    return true;
}

void Progress::Tell(uint64_t done, uint64_t items, const char* itemName) const {
    std::fprintf(stderr, "%s: %" PRIu64 "%%, %" PRIu64 " %s\n", what,
                 std::min(done, total) * 100 / total, items, itemName);
}
