#include "search/transposition.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "board/keys.h"
#include "board/moves/order_tables.h"
#include "board/pawns.h"
#include "board/position.h"
#include "search/state.h"

constinit int32_t HashFilledCount = 0;

namespace {

constexpr uint64_t EMPTY_KEY = 1234567;

// Where the fields of an entry begin.
constexpr int KEY_AT = 0;
constexpr int DEPTH_AT = 8;
constexpr int SCORE_AT = 10;
constexpr int FLAGS_AT = 14;
constexpr int AGE_AT = 18;
constexpr int HINTS_AT = 20;
static_assert(HINTS_AT + sizeof(uint16_t) == TRANSPOSITION_ENTRY_BYTES);

// The flags word: the move in the low bits, then these.
constexpr int BOUND_SHIFT = 21;
constexpr int SIDE_SHIFT = 23;
constexpr int THREAT_SHIFT = 30;

// This many entries are found by a mask instead of a division.
constexpr int32_t MASKED_ENTRIES = 524288;
// The side to move enters the index by this term, but not the stored key.
constexpr uint64_t SIDE_TERM = 4;

constinit uint8_t* Table = nullptr;
constinit int32_t EntryCount = 0;

} // namespace

template <typename T> static inline T Load(const uint8_t* at) {
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

template <typename T> static inline void Save(uint8_t* at, T value) {
    std::memcpy(at, &value, sizeof value);
}

static inline uint32_t FlagsOf(const uint8_t* slot) {
    return Load<uint32_t>(slot + FLAGS_AT);
}

static inline bool IsStale(const uint8_t* slot) {
    return Load<int16_t>(slot + AGE_AT) != HashAge;
}

static inline int32_t DepthOf(const uint8_t* slot) {
    return Load<int16_t>(slot + DEPTH_AT);
}

// Whether the occupied slot holds the position with that key and the side to move.
static inline bool Holds(const uint8_t* slot, uint64_t key) {
    const auto side = Colour(FlagsOf(slot) >> SIDE_SHIFT & 1);
    return Load<uint64_t>(slot + KEY_AT) == key && side == SideToMove;
}

// The first of the two slots of a position; the second lies behind it, at the last index in the
// spare entries.
static inline uint8_t* BucketOf(uint64_t key, Colour sideToMove) {
    const uint64_t k = key ^ (SIDE_TERM * sideToMove);
    const uint32_t index = EntryCount == MASKED_ENTRIES ? uint32_t(k) & (MASKED_ENTRIES - 1)
                                                        : uint32_t(k) % uint32_t(EntryCount);
    return Table + size_t{index} * TRANSPOSITION_ENTRY_BYTES;
}

// The file counts wherever a pawn stands ready to take, even a pinned one.
uint64_t HashKey() {
    const uint64_t key = PosKey ^ CastleKeys[CastleRights];
    return EnPassantTakers(SideToMove) ? key ^ EpKeys[FileOf(To(LastMove()))] : key;
}

void PrefetchHash(uint64_t placement) {
    if (EntryCount <= 0)
        return;
    const uint8_t* const bucket =
        BucketOf(placement ^ CastleKeys[CastleRights], ChangeSide(SideToMove));
    __builtin_prefetch(bucket);
    // Two entries without alignment often reach into the next line of the processor's cache.
    __builtin_prefetch(bucket + 2 * TRANSPOSITION_ENTRY_BYTES - 1);
}

HashHit HashProbe() {
    if (EntryCount <= 0)
        return {};
    const uint64_t key = HashKey();
    uint8_t* slot = BucketOf(key, SideToMove);
    for (int i = 0; i < 2; i++, slot += TRANSPOSITION_ENTRY_BYTES) {
        const uint32_t flags = FlagsOf(slot);
        if (flags == 0)
            break;
        if (!Holds(slot, key))
            continue;
        Save(slot + AGE_AT, HashAge);
        return {true,
                flags & MOVE_MASK,
                Load<int32_t>(slot + SCORE_AT),
                DepthOf(slot),
                BoundType(flags >> BOUND_SHIFT & 3),
                (flags >> THREAT_SHIFT & 1) != 0,
                Load<uint16_t>(slot + HINTS_AT)};
    }
    return {};
}

// Of two slots with other positions the one that is the smaller loss.
static inline uint8_t* WorthLess(uint8_t* first, uint8_t* second) {
    if (IsStale(first) != IsStale(second))
        return IsStale(second) ? second : first;
    return DepthOf(second) < DepthOf(first) ? second : first;
}

// The slot that a result of this depth goes to, or null when what is there stays. A matching slot
// takes part of the result in any case: its hint bits are merged with `hintBits`, its age is
// refreshed.
static uint8_t* SlotToFill(uint64_t key, int32_t depth, uint16_t& hintBits) {
    uint8_t* const first = BucketOf(key, SideToMove);
    uint8_t* const second = first + TRANSPOSITION_ENTRY_BYTES;
    for (uint8_t* slot : {first, second}) {
        if (FlagsOf(slot) == 0)
            return slot;
        if (!Holds(slot, key))
            continue;
        hintBits |= Load<uint16_t>(slot + HINTS_AT);
        Save(slot + HINTS_AT, hintBits);
        Save(slot + AGE_AT, HashAge);
        return depth < DepthOf(slot) ? nullptr : slot;
    }
    uint8_t* const slot = WorthLess(first, second);
    return !IsStale(slot) && depth < DepthOf(slot) ? nullptr : slot;
}

// A bound that is a mate says only that there is one, not how far away; an exact mate is counted
// from this node, so that it holds for every path that leads here.
static int32_t ScoreToStore(int32_t score, BoundType bound) {
    if (bound == BOUND_UPPER)
        return std::max(score, -MATE_BOUND);
    if (bound == BOUND_LOWER)
        return std::min(score, MATE_BOUND);
    if (score > MATE_BOUND)
        return score + Running.SearchPly;
    return score < -MATE_BOUND ? score - Running.SearchPly : score;
}

int32_t MateFromHash(int32_t score) {
    if (score > MATE_BOUND)
        return score - Running.SearchPly;
    return score < -MATE_BOUND ? score + Running.SearchPly : score;
}

void HashStore(int32_t depth, Move move, int32_t score, BoundType bound, bool mateThreat,
               uint16_t hintBits) {
    assert(depth >= 0 && depth <= TABLEBASE_DEPTH && std::abs(score) <= MATE);
    assert(move <= MOVE_MASK);
    if (EntryCount <= 0)
        return;
    const uint64_t key = HashKey();
    uint8_t* const slot = SlotToFill(key, depth, hintBits);
    if (slot == nullptr)
        return;
    if (FlagsOf(slot) == 0 || IsStale(slot))
        HashFilledCount++;
    Save(slot + KEY_AT, key);
    Save(slot + DEPTH_AT, int16_t(depth));
    Save(slot + SCORE_AT, ScoreToStore(score, bound));
    Save(slot + FLAGS_AT, (move & MOVE_MASK) | uint32_t(bound) << BOUND_SHIFT |
                              uint32_t(SideToMove) << SIDE_SHIFT |
                              uint32_t(mateThreat) << THREAT_SHIFT);
    Save(slot + AGE_AT, HashAge);
    Save(slot + HINTS_AT, hintBits);
}

void HashStoreQuiescence(Move move, int32_t score, BoundType bound, uint16_t hintBits) {
    HashStore(0, move, score, bound, false, hintBits);
}

int32_t HashFull() {
    return EntryCount <= 0 ? 0 : int32_t(int64_t{HashFilledCount} * 1000 / EntryCount);
}

void ClearHash() {
    HashAge = 0;
    if (Table == nullptr)
        return;
    const size_t slots = size_t(EntryCount) + TRANSPOSITION_SPARE_ENTRIES;
    for (size_t i = 0; i < slots; i++) {
        uint8_t* const slot = Table + i * TRANSPOSITION_ENTRY_BYTES;
        Save(slot + KEY_AT, EMPTY_KEY);
        Save(slot + FLAGS_AT, uint32_t{0});
    }
}

void SetTranspositionMemory(void* memory, int32_t count) {
    Table = static_cast<uint8_t*>(memory);
    EntryCount = memory == nullptr ? 0 : count;
}
