// The process clock: wall time since the process started.
#pragma once

#include <cstdint>

// Starts the clock at zero. Called once, first thing in `main`; before that every reading is
// taken from the first call of any procedure here.
void StartClock();

// Wall time in milliseconds since the start; never runs backwards.
int64_t ClockMilliseconds();

// The same in hundredths of a second, truncated: the unit of every time in the engine.
int ClockCentiseconds();

// Sleeps for a hundredth of a second.
void SleepBriefly();

// Calendar time in whole seconds, for seeding the random generator.
int64_t CalendarSeconds();
