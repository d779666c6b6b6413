// When the engine gives a game up.
#pragma once

#include <cstdint>

// A search counts toward resignation below minus this many centipawns ...
extern int32_t ResignValue;
// ... and this many of them in a row resign. 0 or less resigns after every search, and is meant to.
extern int32_t ResignTimes;

constexpr int32_t DEFAULT_RESIGN_VALUE = 800;
constexpr int32_t DEFAULT_RESIGN_TIMES = 3;

// Whether the latest searches of this game, one engine move apart, were all lost. Asked after a
// search and before its move is made.
bool ShouldResign();
