#include "eval/pawns/pawn_hash.h"

#include <cstring>

#include "board/position.h"

static constexpr uint64_t EMPTY_PAWN_KEY = 1234567;
// A table of this size finds its records by a mask instead of a division.
static constexpr int32_t USUAL_SLOTS = 0x40000;

static constexpr PawnEntry NoPawns() {
    PawnEntry entry = {};
    entry.key = EMPTY_PAWN_KEY;
    return entry;
}

constinit PawnEntry Pawns = NoPawns();

// Base of the records, and how many the table has without the spare ones; 0 switches it off.
static constinit uint8_t* PawnHashTable = nullptr;
static constinit int32_t PawnHashSlots = 0;

static uint8_t* SlotOf(uint64_t key) {
    const uint32_t slot = PawnHashSlots == USUAL_SLOTS ? uint32_t(key) & (USUAL_SLOTS - 1)
                                                       : uint32_t(key) % uint32_t(PawnHashSlots);
    return PawnHashTable + size_t{slot} * PAWN_ENTRY_BYTES;
}

bool FindPawns() {
    if (PawnHashSlots <= 0)
        return false;
    if (Pawns.key == PawnKey)
        return true;
    const uint8_t* const slot = SlotOf(PawnKey);
    uint64_t key;
    std::memcpy(&key, slot, sizeof key);
    if (key != PawnKey)
        return false;
    std::memcpy(&Pawns, slot, PAWN_ENTRY_BYTES);
    return true;
}

void StorePawns() {
    if (PawnHashSlots > 0)
        std::memcpy(SlotOf(Pawns.key), &Pawns, PAWN_ENTRY_BYTES);
}

void ClearPawnHash() {
    Pawns.key = EMPTY_PAWN_KEY;
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
