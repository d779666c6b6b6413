// Which endgame tablebases there are: where they are looked for, and how many men they cover.
#pragma once

#include <cstdint>

extern bool UseEgtb;             // the user wants them probed
extern int32_t EgtbCacheBytes;   // memory for decoded blocks
extern int32_t LargestTablebase; // most men that a registered table covers; 0 without tables
extern int32_t TablebaseMemory;  // bytes that indices and decoding tables take

constexpr int32_t DEFAULT_EGTB_CACHE = 1048576;
constexpr int EGTB_PATH_SIZE = 1024;
extern char EgtbPath[EGTB_PATH_SIZE]; // directories, separated by commas or semicolons

// Takes over the list of directories; what does not fit is cut off.
void SetEgtbPath(const char* path);

void SetDefaultEgtbSettings();

// Prints how many men the tables found cover, or that there are none, and the memory they take.
void PrintTablebaseCount();
