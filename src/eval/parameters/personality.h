// The personality: three settings with the weights that are derived from them, and whose they are.
#pragma once

#include "board/types.h"

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

// Side to move at the root of the running search: whose king the personality weighs as its own.
// Set by the search driver and before an evaluation that is printed.
extern Colour RootSide;

// Each stores the setting with its weight. Any value is taken as it is; who reads settings bounds
// them. Doubling wraps like 32-bit arithmetic.
void SetAggressivity(int32_t percent);
void SetCowardice(int32_t percent);
void SetTropism(int32_t percent);
