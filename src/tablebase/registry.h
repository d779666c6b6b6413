// The tables that have been found, by class and side to move.
#pragma once

#include <cstdint>

#include "board/types.h"
#include "tablebase/table_file.h"

// Forgets all tables, then registers those in the directories of the list, separated by commas or
// semicolons; of several files for the same table the first counts. Directories on drives that do
// not exist are passed over, missing directories and files are silent, and what is wrong with a
// file is told in a line that begins with "***" and leaves that file out. In a directory that
// cannot be listed the names of files are tried as they stand in the list of classes. Returns how
// many men the largest class registered has, 3 to 6, or 0 for none. Ends the process with exit
// status 1 when the memory for indices or the decode block cannot be had.
int RegisterTablebases(const char* pathList);
void ForgetTablebases();

// The table of the class with that side to move, WHITE for the first-named one, as it is in files:
// a symmetric class may have only one. Null when it is not registered.
TableFile* RegisteredTable(int classNumber, Colour side);

// Bytes that the indices of the registered tables and their decoding take, beside the cache.
int32_t TablebaseMemory();
