// Times as they come in, as hundredths of a second within what a clock can show.
#pragma once

#include <cstdint>

// A number of larger units of `factor` hundredths each.
int32_t Hundredths(int64_t number, int64_t factor);

// What a clock still shows: a time that was given never reads as "no clock" or "infinite", so one
// that has run out counts as the smallest there is.
int32_t RemainingTime(int64_t hundredths);
