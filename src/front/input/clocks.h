// Times as they come in, as hundredths of a second within what a clock can show.
#pragma once

#include <cstdint>

// Hundredths of a second in larger units.
constexpr int64_t SECOND = 100;
constexpr int64_t MINUTE = 60 * SECOND;

// So many of those units.
int32_t Hundredths(int64_t number, int64_t unit);

// What a clock still shows: a time that was given never reads as "no clock" or "infinite", so one
// that has run out counts as the smallest there is.
int32_t RemainingTime(int64_t hundredths);
