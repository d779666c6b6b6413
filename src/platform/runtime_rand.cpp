#include "platform/runtime_rand.h"

namespace {

constinit uint32_t State = 1;

} // namespace

int Rand() {
    State = State * 214013 + 2531011;
    return int(State >> 16 & 32767);
}

void SeedRand(uint32_t seed) {
    State = seed;
}
