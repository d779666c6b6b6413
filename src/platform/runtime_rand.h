// The runtime library's pseudo-random sequence, the same on every platform.
//
// Hash keys and book choices are drawn from it. A linear congruential generator of 32 bits whose
// upper 15 bits are handed out: state = state * 214013 + 2531011, result = bits 16 to 30.
#pragma once

#include <cstdint>

// The next number, 0..32767. The sequence starts from state 1 until it is seeded.
int Rand();

// Restarts the sequence from `seed`.
void SeedRand(uint32_t seed);
