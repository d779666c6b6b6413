// The three personality settings with the weights that are derived from them.
#pragma once

#include <cstdint>

// Percent as the user typed it, default 100; and the weight that is derived when it is set.
extern int32_t Aggressivity;
extern int32_t Cowardice;
extern int32_t Tropism;
extern int32_t AggressivityWeight; // half of the setting, truncated: default 50
extern int32_t CowardiceWeight;    // half of the setting, truncated: default 50
// Twice the setting. Stored and printed; the evaluation does not read it, and users know that.
extern int32_t TropismWeight;

// Each stores the setting with its weight. Any value is taken as it is; who reads settings bounds
// them. Doubling wraps like 32-bit arithmetic.
void SetAggressivity(int32_t percent);
void SetCowardice(int32_t percent);
void SetTropism(int32_t percent);
