// Large blocks of memory for tables that are read at random.
#pragma once

#include <cstddef>

// Zero-filled memory, or null when there is none. Where the system offers large pages, the block
// lies in them: a table read at random then finds its pages without looking each of them up.
void* AllocateLargeMemory(size_t bytes);

// Gives the block back; null is allowed.
void FreeLargeMemory(void* memory);
