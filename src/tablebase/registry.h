// Which endgame tablebases there are: where they are looked for, and how many men they cover.
#pragma once

#include <cstdint>

#include "board/types.h"
#include "tablebase/table_file.h"

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

// Forgets all tables, then registers those in the directories of the list, separated by commas or
// semicolons; of several files for the same table the first counts. Directories on drives that do
// not exist are passed over, missing directories and files are silent, and what is wrong with a
// file is told in a line that begins with "***" and leaves that file out. In a directory that
// cannot be listed the names of files are tried as they stand in the list of classes. Returns how
// many men the largest class registered has, 3 to 6, or 0 for none. Ends the process with exit
// status 1 when the memory for indices or the decode block cannot be had.
int RegisterTablebases(const char* pathList);

// The table of the class with that side to move, WHITE for the first-named one, as it is in files:
// a symmetric class may have only one. Null when it is not registered.
TableFile* RegisteredTable(int classNumber, Colour side);

// Prints how many men the tables found cover, or that there are none, and the memory they take.
void PrintTablebaseCount();
