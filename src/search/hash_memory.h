// The memory of the large tables: transposition table, pawn table, evaluation cache.
//
// Who reads the entries owns their layout; allocation, resizing and clearing are together here.
#pragma once

#include <cstdint>

#include "eval/eval_cache.h"
#include "eval/pawns/pawn_hash.h"
#include "search/transposition.h"

constexpr int32_t DEFAULT_TRANSPOSITION_ENTRIES = 524288;
constexpr int32_t DEFAULT_PAWN_ENTRIES = 262144;

// Entry counts in force; settings change the first two before the tables are allocated, programs
// that want small tables all three. 0 switches a table off.
extern int32_t TranspositionCount;
extern int32_t PawnHashCount;
extern int32_t EvalCacheCount;

// Whether a running engine that cannot have a table of a new size goes on with one of the old size;
// else it ends.
extern bool OldTablesStay;

// Allocates and clears all three tables from the entry counts, freeing what was there. When
// memory is short, prints "An error occured while memory allocation!" and ends the process with
// status 1. A negative count, and one whose bytes cannot be counted, is a failed allocation.
void AllocateHashTables();

// Replace one table with one of that many megabytes (32-bit arithmetic; what comes out negative
// counts as a failed allocation). The contents are lost. When memory is short, prints the same and
// ends the process with status 1, unless old tables stay.
void ResizeHash(int32_t megabytes);
void ResizePawnHash(int32_t megabytes);

// Replaces the cache of tablebase blocks by one of that many megabytes, with the same arithmetic.
// When memory is short tablebases are switched off.
void ResizeEgtbCache(int32_t megabytes);

// Empties all three tables and sets the generation stamp back.
void ClearAllHashTables();

// Gives the memory of all three tables and of the tablebases back, before the process ends.
// Until tables are allocated again, nothing is stored.
void FreeHashTables();
