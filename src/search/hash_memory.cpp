#include "search/hash_memory.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/large_memory.h"
#include "tablebase/tablebases.h"

constinit int32_t TranspositionCount = DEFAULT_TRANSPOSITION_ENTRIES;
constinit int32_t PawnHashCount = DEFAULT_PAWN_ENTRIES;
constinit int32_t EvalCacheCount = EVAL_CACHE_ENTRIES;
constinit bool OldTablesStay = false;

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

// Zero-filled memory for `count` entries and the spare ones; false when there is none. Clearing
// leaves most of an entry as it is, so it must start from something.
static bool AllocateEntries(LargeBlock& block, int32_t count, int entryBytes, int spareEntries) {
    if (count >= 0)
        block = AllocateLargeBlock((size_t(count) + size_t(spareEntries)) * size_t(entryBytes));
    return block.memory != nullptr;
}

static bool AllocateTranspositionTable() {
    FreeTranspositionTable();
    if (!AllocateEntries(TranspositionMemory, TranspositionCount, TRANSPOSITION_ENTRY_BYTES,
                         TRANSPOSITION_SPARE_ENTRIES))
        return false;
    SetTranspositionMemory(TranspositionMemory.memory, TranspositionCount);
    ClearHash();
    return true;
}

static bool AllocatePawnHash() {
    FreePawnHash();
    if (!AllocateEntries(PawnHashMemory, PawnHashCount, PAWN_ENTRY_BYTES, PAWN_SPARE_ENTRIES))
        return false;
    SetPawnHashMemory(PawnHashMemory.memory, PawnHashCount);
    ClearPawnHash();
    return true;
}

static bool AllocateEvalCache() {
    FreeEvalCache();
    if (!AllocateEntries(EvalCacheMemory, EvalCacheCount, EVAL_CACHE_ENTRY_BYTES,
                         EVAL_CACHE_SPARE_ENTRIES))
        return false;
    SetEvalCacheMemory(EvalCacheMemory.memory, EvalCacheCount);
    ClearEvalCache();
    return true;
}

static void TellShortage() {
    std::puts("An error occured while memory allocation!");
    std::fflush(stdout);
}

[[noreturn]] static void EndWithoutMemory() {
    FreeHashTables();
    std::exit(1);
}

void AllocateHashTables() {
    if (AllocateTranspositionTable() && AllocatePawnHash() && AllocateEvalCache())
        return;
    TellShortage();
    EndWithoutMemory();
}

// The old table goes first: there may not be memory for both.
static void Resize(int32_t& count, int32_t wanted, bool (*allocate)()) {
    const int32_t before = std::exchange(count, wanted);
    if (allocate())
        return;
    TellShortage();
    count = before;
    if (!OldTablesStay || !allocate())
        EndWithoutMemory();
}

// Entries that fit into that many megabytes. The product wraps like any 32-bit one: from 2048 on
// it comes out negative or too small, and users see a failed allocation or a small table.
static int32_t EntriesInMegabytes(int32_t megabytes, int entryBytes) {
    return int32_t(uint32_t(megabytes) * MEGABYTE) / entryBytes;
}

void ResizeHash(int32_t megabytes) {
    Resize(TranspositionCount, EntriesInMegabytes(megabytes, TRANSPOSITION_ENTRY_BYTES),
           AllocateTranspositionTable);
}

void ResizePawnHash(int32_t megabytes) {
    Resize(PawnHashCount, EntriesInMegabytes(megabytes, PAWN_ENTRY_BYTES), AllocatePawnHash);
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
