// The faults that a check of a file has found.
#pragma once

#include <cstdint>

// Tells of one, unless there have been many.
[[gnu::format(printf, 1, 2)]] void Fault(const char* format, ...);

// How many have been found so far.
uint64_t Faults();
