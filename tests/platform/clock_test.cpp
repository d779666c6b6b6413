// The process clock.

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "platform/clock.h"

namespace {

TEST(Clock, RunsWithRealTimeWhileTheProcessSleeps) {
    using Time = std::chrono::steady_clock;
    const auto before = Time::now();
    StartClock();
    // A process that waits for its opponent uses no processor time, but its clock runs. This is the
    // one thing that only waiting shows; how long the machine takes beyond that does not matter.
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    const int64_t first = ClockMilliseconds();
    const int hundredths = ClockCentiseconds();
    const int64_t last = ClockMilliseconds();
    EXPECT_GE(first, 40);
    EXPECT_GE(Time::now() - before, std::chrono::milliseconds(last));
    EXPECT_GE(hundredths, first / 10);
    EXPECT_LE(hundredths, last / 10);
}

} // namespace
