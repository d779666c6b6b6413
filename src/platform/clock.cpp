#include "platform/clock.h"

#include <chrono>
#include <thread>

namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

constinit SteadyTime Start = {};

} // namespace

void StartClock() {
    Start = std::chrono::steady_clock::now();
}

int64_t ClockMilliseconds() {
    if (Start == SteadyTime{})
        StartClock();
    const auto elapsed = std::chrono::steady_clock::now() - Start;
    return std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
}

int ClockCentiseconds() {
    return int(ClockMilliseconds() / 10);
}

void SleepBriefly() {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

int64_t CalendarSeconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(now).count();
}
