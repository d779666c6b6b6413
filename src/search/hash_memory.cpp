#include "search/hash_memory.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "platform/large_memory.h"
#include "tablebase/tablebases.h"

constinit int32_t TranspositionCount = DEFAULT_TRANSPOSITION_ENTRIES;
constinit int32_t PawnHashCount = DEFAULT_PAWN_ENTRIES;
constinit int32_t EvalCacheCount = EVAL_CACHE_ENTRIES;

namespace {

constexpr uint32_t MEGABYTE = 1 << 20;

constinit LargeBlock TranspositionMemory = {};
constinit LargeBlock PawnHashMemory = {};
constinit LargeBlock EvalCacheMemory = {};

} // namespace

static void FreeTranspositionTable() {
    SetTranspositionMemory(nullptr, 0);
    FreeLargeBlock(TranspositionMemory);
}

static void FreePawnHash() {
    SetPawnHashMemory(nullptr, 0);
    FreeLargeBlock(PawnHashMemory);
}

static void FreeEvalCache() {
    SetEvalCacheMemory(nullptr, 0);
    FreeLargeBlock(EvalCacheMemory);
}

void FreeHashTables() {
    FreeTranspositionTable();
    FreePawnHash();
    FreeEvalCache();
    CloseTablebases();
}

// Zero-filled memory for `count` entries and the spare ones; ends the process when there is none.
// Clearing leaves most of an entry as it is, so it must start from something.
static LargeBlock AllocateEntries(int32_t count, int entryBytes, int spareEntries) {
    LargeBlock block;
    if (count >= 0)
        block = AllocateLargeBlock((size_t(count) + size_t(spareEntries)) * size_t(entryBytes));
    if (block.memory == nullptr) {
        std::puts("An error occured while memory allocation!");
        std::fflush(stdout);
        FreeHashTables();
        std::exit(1);
    }
    return block;
}

static void AllocateTranspositionTable() {
    FreeTranspositionTable();
    TranspositionMemory =
        AllocateEntries(TranspositionCount, TRANSPOSITION_ENTRY_BYTES, TRANSPOSITION_SPARE_ENTRIES);
    SetTranspositionMemory(TranspositionMemory.memory, TranspositionCount);
    ClearHash();
}

static void AllocatePawnHash() {
    FreePawnHash();
    PawnHashMemory = AllocateEntries(PawnHashCount, PAWN_ENTRY_BYTES, PAWN_SPARE_ENTRIES);
    SetPawnHashMemory(PawnHashMemory.memory, PawnHashCount);
    ClearPawnHash();
}

static void AllocateEvalCache() {
    FreeEvalCache();
    EvalCacheMemory =
        AllocateEntries(EvalCacheCount, EVAL_CACHE_ENTRY_BYTES, EVAL_CACHE_SPARE_ENTRIES);
    SetEvalCacheMemory(EvalCacheMemory.memory, EvalCacheCount);
    ClearEvalCache();
}

void AllocateHashTables() {
    AllocateTranspositionTable();
    AllocatePawnHash();
    AllocateEvalCache();
}

// Entries that fit into that many megabytes. The product wraps like any 32-bit one: from 2048 on
// it comes out negative or too small, and users see a failed allocation or a small table.
static int32_t EntriesInMegabytes(int32_t megabytes, int entryBytes) {
    return int32_t(uint32_t(megabytes) * MEGABYTE) / entryBytes;
}

void ResizeHash(int32_t megabytes) {
    TranspositionCount = EntriesInMegabytes(megabytes, TRANSPOSITION_ENTRY_BYTES);
    AllocateTranspositionTable();
}

void ResizePawnHash(int32_t megabytes) {
    PawnHashCount = EntriesInMegabytes(megabytes, PAWN_ENTRY_BYTES);
    AllocatePawnHash();
}

void ResizeEgtbCache(int32_t megabytes) {
    Tablebases.EgtbCacheBytes = int32_t(uint32_t(megabytes) * MEGABYTE);
    AllocateTablebaseCache();
}

void ClearAllHashTables() {
    ClearHash();
    ClearPawnHash();
    ClearEvalCache();
}
