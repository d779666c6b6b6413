#include "eval/pawn_hash.h"

#include <cstddef>
#include <cstring>

constinit uint8_t* PawnHashTable = nullptr;
constinit int32_t PawnHashSlots = 0;

static constexpr uint64_t EMPTY_PAWN_KEY = 1234567;

void ClearPawnHash() {
    if (PawnHashTable == nullptr)
        return;
    const size_t records = size_t(PawnHashSlots) + PAWN_SPARE_ENTRIES;
    for (size_t i = 0; i < records; i++)
        std::memcpy(PawnHashTable + i * PAWN_ENTRY_BYTES, &EMPTY_PAWN_KEY, sizeof EMPTY_PAWN_KEY);
}

void SetPawnHashMemory(void* memory, int32_t count) {
    PawnHashTable = static_cast<uint8_t*>(memory);
    PawnHashSlots = memory == nullptr ? 0 : count;
}
