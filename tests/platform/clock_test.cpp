// The process clock.

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "platform/clock.h"

namespace {

TEST(Clock, RunsWhileTheProcessSleeps) {
    StartClock();
    // A process that waits for its opponent uses no processor time, but its clock runs. This is the
    // one thing that only waiting shows; how long the machine takes beyond that does not matter.
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    EXPECT_GE(ClockMilliseconds(), 40);
    EXPECT_GE(ClockCentiseconds(), 4);
}

TEST(Clock, StartsAtZeroAndCountsInRealMilliseconds) {
    using Time = std::chrono::steady_clock;
    const auto before = Time::now();
    StartClock();
    const auto started = Time::now();
    int64_t last = 0;
    while (last < 30) {
        const int64_t now = ClockMilliseconds();
        ASSERT_GE(now, last);
        last = now;
    }
    using std::chrono::milliseconds;
    EXPECT_GE(Time::now() - before, milliseconds(last));
    const auto least = std::chrono::duration_cast<milliseconds>(Time::now() - started).count();
    EXPECT_GE(ClockMilliseconds(), least);
}

TEST(Clock, HundredthsAreMillisecondsCutToTheTen) {
    const int64_t before = ClockMilliseconds();
    const int hundredths = ClockCentiseconds();
    const int64_t after = ClockMilliseconds();
    EXPECT_GE(hundredths, before / 10);
    EXPECT_LE(hundredths, after / 10);
}

} // namespace
