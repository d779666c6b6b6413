#include "tablebase/block_cache.h"

#include "platform/large_memory.h"

namespace {

constexpr int32_t NONE = -1;

// Entries are chained in two ways: all of them by last use, and those whose blocks fall on the same
// bucket. An entry holds the head of one bucket besides, whatever its own block is.
struct CacheEntry {
    uint64_t block;
    uint32_t serial; // of the table; 0 when the entry is empty
    uint32_t bytes;
    int32_t newer;
    int32_t older;
    int32_t nextInBucket;
    int32_t firstOfBucket;
    uint8_t unused[56]; // users have always counted 88 bytes beside the block
    uint8_t plain[TABLE_BLOCK];
};
static_assert(sizeof(CacheEntry) == CACHE_ENTRY_BYTES);

constinit LargeBlock CacheMemory = {};
constinit CacheEntry* Entries = nullptr;
constinit int32_t EntryCount = 0;
constinit int32_t Newest = NONE;
constinit int32_t Oldest = NONE;

// No table has so many blocks that their numbers reach the serial number above them.
constexpr int SERIAL_SHIFT = 40;
constexpr uint64_t MIX = 0x9e3779b97f4a7c15; // odd, without a pattern

// From a byte to the 16-bit value.
constexpr int32_t WIDEN = 32640;

} // namespace

void FreeBlockCache() {
    FreeLargeBlock(CacheMemory);
    Entries = nullptr;
    EntryCount = 0;
}

static void EmptyCache() {
    for (int32_t i = 0; i < EntryCount; i++) {
        CacheEntry& entry = Entries[i];
        entry.serial = 0;
        entry.newer = i - 1;
        entry.older = i + 1 < EntryCount ? i + 1 : NONE;
        entry.nextInBucket = NONE;
        entry.firstOfBucket = NONE;
    }
    Newest = EntryCount > 0 ? 0 : NONE;
    Oldest = EntryCount - 1;
}

bool AllocateBlockCache(int32_t bytes) {
    FreeBlockCache();
    if (bytes < 0)
        return false;
    const int32_t count = bytes / CACHE_ENTRY_BYTES;
    if (count > 0)
        CacheMemory = AllocateLargeBlock(size_t(count) * sizeof(CacheEntry));
    if (count > 0 && CacheMemory.memory == nullptr)
        return false;
    Entries = static_cast<CacheEntry*>(CacheMemory.memory);
    EntryCount = count;
    EmptyCache();
    return true;
}

int32_t CacheEntries() {
    return EntryCount;
}

static int32_t& BucketOf(uint32_t serial, uint64_t block) {
    const uint64_t mixed = (block ^ uint64_t{serial} << SERIAL_SHIFT) * MIX;
    return Entries[(mixed >> 32) * uint64_t(EntryCount) >> 32].firstOfBucket;
}

static void MakeNewest(int32_t i) {
    if (i == Newest)
        return;
    CacheEntry& entry = Entries[i];
    Entries[entry.newer].older = entry.older;
    if (entry.older == NONE)
        Oldest = entry.newer;
    else
        Entries[entry.older].newer = entry.newer;
    entry.newer = NONE;
    entry.older = Newest;
    Entries[Newest].newer = i;
    Newest = i;
}

static int32_t FindEntry(uint32_t serial, uint64_t block) {
    int32_t i = BucketOf(serial, block);
    while (i != NONE && (Entries[i].serial != serial || Entries[i].block != block))
        i = Entries[i].nextInBucket;
    return i;
}

static void TakeFromBucket(int32_t i) {
    CacheEntry& entry = Entries[i];
    if (entry.serial == 0)
        return;
    int32_t* link = &BucketOf(entry.serial, entry.block);
    while (*link != i)
        link = &Entries[*link].nextInBucket;
    *link = entry.nextInBucket;
    entry.serial = 0;
}

// Reads the block into the entry that was used longest ago. What cannot be read leaves the entry
// empty.
static int32_t ReadIntoCache(TableFile& table, uint64_t block) {
    const int32_t i = Oldest;
    CacheEntry& entry = Entries[i];
    TakeFromBucket(i);
    entry.bytes = uint32_t(ReadTableBlock(table, block, entry.plain));
    if (entry.bytes == 0)
        return NONE;
    entry.serial = table.serial;
    entry.block = block;
    int32_t& bucket = BucketOf(table.serial, block);
    entry.nextInBucket = bucket;
    bucket = i;
    return i;
}

bool ReadTableEntry(TableFile& table, uint64_t index, int32_t& value) {
    if (EntryCount == 0 || index >= table.bytes / table.entryBytes)
        return false;
    const uint64_t offset = index * table.entryBytes;
    const uint64_t block = offset / TABLE_BLOCK;
    int32_t i = FindEntry(table.serial, block);
    if (i == NONE)
        i = ReadIntoCache(table, block);
    if (i == NONE)
        return false;
    MakeNewest(i);
    const auto place = size_t(offset % TABLE_BLOCK);
    const CacheEntry& entry = Entries[i];
    if (place + table.entryBytes > entry.bytes)
        return false;
    if (table.entryBytes == 2) {
        value = int16_t(LoadLittle16(entry.plain + place));
        return true;
    }
    const int32_t byte = int8_t(entry.plain[place]);
    value = byte == 0             ? 0
            : byte == BROKEN_BYTE ? BROKEN_WORD
            : byte > 0            ? byte + WIDEN
                                  : byte - WIDEN;
    return true;
}
