// Large blocks of memory for tables that are read at random.
#pragma once

#include <cstddef>

// A block, or none. The system gives each directly and takes it back whole, so that tables of
// changing sizes leave nothing behind.
struct LargeBlock {
    void* memory = nullptr;
    size_t bytes = 0;
};

// Zero-filled memory, or no block when there is not that much. Where the system offers large pages,
// the block lies in them: a table read at random then finds its pages without looking each of them
// up.
LargeBlock AllocateLargeBlock(size_t bytes);

// Gives the block back and leaves none.
void FreeLargeBlock(LargeBlock& block);
