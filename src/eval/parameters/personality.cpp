#include "eval/parameters/personality.h"

constinit PersonalitySettings Personality;
constinit Colour RootSide = WHITE;

void SetAggressivity(int32_t percent) {
    Personality.Aggressivity = percent;
    Personality.AggressivityWeight = percent / 2;
}

void SetCowardice(int32_t percent) {
    Personality.Cowardice = percent;
    Personality.CowardiceWeight = percent / 2;
}

void SetTropism(int32_t percent) {
    Personality.Tropism = percent;
    Personality.TropismWeight = int32_t(uint32_t(percent) * 2);
}
