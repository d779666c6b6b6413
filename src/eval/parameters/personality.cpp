#include "eval/parameters/personality.h"

constinit int32_t Aggressivity = 100;
constinit int32_t Cowardice = 100;
constinit int32_t Tropism = 100;
constinit int32_t AggressivityWeight = 50;
constinit int32_t CowardiceWeight = 50;
constinit int32_t TropismWeight = 200;

void SetAggressivity(int32_t percent) {
    Aggressivity = percent;
    AggressivityWeight = percent / 2;
}

void SetCowardice(int32_t percent) {
    Cowardice = percent;
    CowardiceWeight = percent / 2;
}

void SetTropism(int32_t percent) {
    Tropism = percent;
    TropismWeight = int32_t(uint32_t(percent) * 2);
}
