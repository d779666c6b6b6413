// The door of the endgame tablebases: all that the rest of the engine asks of them goes through
// here.
#pragma once

#include <cstdint>

#include "board/types.h"

constexpr int32_t DEFAULT_EGTB_CACHE = 1048576;
constexpr int EGTB_PATH_SIZE = 1024;

// What the user has set.
struct TablebaseSettings {
    bool UseEgtb = true;                                // they are probed
    int32_t EgtbCacheBytes = DEFAULT_EGTB_CACHE;        // memory for decoded blocks
    char EgtbPath[EGTB_PATH_SIZE] = "c:\\tablebases\\"; // directories, between commas or semicolons
};

extern TablebaseSettings Tablebases;

// Takes over the list of directories; what does not fit is cut off.
void SetEgtbPath(const char* path);

// Closes all tables, then opens those in the directories of the list, as RegisterTablebases tells.
// They answer once there is a cache.
void OpenTablebases();

// Replaces the cache by an empty one of the size that is set. When memory is out, or the size is
// negative, prints "An error occured while memory allocation!" and no table answers any more until
// they are opened again.
void AllocateTablebaseCache();

// Closes all tables and gives their memory and the cache's back.
void CloseTablebases();

// The most men that an open table covers; 0 when none answers.
int LargestTablebase();

// Prints how many men the open tables cover, or that there are none, and the memory they take.
void PrintTablebaseCount();

// Looks up the position on the board with `side` to move. 1 with its score from that side's view
// as if it stood at the root's place: 32700 - 2n for a mate in n moves, 2n - 32700 for being mated
// in n, 0 for a draw. 0 when no table tells: none for its men and side to move, one that cannot be
// read or is too short, or a position that cannot be.
int ProbeTablebase(Colour side, int32_t& score);

// The score of a probe as the search counts it at that ply: a mate is the farther away the deeper
// the position stands, unless it is one in more than 149 moves. A draw stays 0.
int32_t TablebaseScoreAt(int ply, int32_t score);
