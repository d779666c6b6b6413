// The three personality settings with the weights that are derived from them.
#pragma once

#include <cstdint>

// Percent as the user typed it, and the weight that is derived when it is set.
struct PersonalitySettings {
    int32_t Aggressivity = 100;
    int32_t Cowardice = 100;
    int32_t Tropism = 100;
    int32_t AggressivityWeight = 50; // half of the setting, truncated
    int32_t CowardiceWeight = 50;    // half of the setting, truncated
    // Twice the setting. Stored and printed; the evaluation does not read it, and users know that.
    int32_t TropismWeight = 200;
};
extern PersonalitySettings Personality;

// Each stores the setting with its weight. Any value is taken as it is; who reads settings bounds
// them. Doubling wraps like 32-bit arithmetic.
void SetAggressivity(int32_t percent);
void SetCowardice(int32_t percent);
void SetTropism(int32_t percent);
