// What the user has set about playing and giving up.
#pragma once

#include <cstdint>

struct PlaySettings {
    bool Pondering = true; // thinking on the opponent's time is allowed
    // A search counts toward resignation below minus this many centipawns ...
    int32_t ResignValue = 800;
    // ... and this many of them in a row resign. 0 or less resigns after every search, and is meant
    // to.
    int32_t ResignTimes = 3;
};
extern PlaySettings PlayOptions;
