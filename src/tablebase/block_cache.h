// The blocks of tables that were read last, in memory.
#pragma once

#include <cstdint>

#include "tablebase/table_file.h"

// One block and what the cache knows of it.
constexpr int32_t CACHE_ENTRY_BYTES = 8280;

// Replaces the cache by an empty one of that size: bytes / CACHE_ENTRY_BYTES entries. False,
// without a cache, when memory is out or the size is negative.
bool AllocateBlockCache(int32_t bytes);
void FreeBlockCache();
int32_t CacheEntries();

// Reads the entry of a table at `index` as a 16-bit value: 0 a draw, 32767 less the moves to mate,
// -32766 and the moves to being mated. False when the table is too short or cannot be read, and
// without a cache. The least recently used block makes room for a new one.
bool ReadTableEntry(TableFile& table, uint64_t index, int32_t& value);
