#include "eval/eval_cache.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "board/keys.h"
#include "board/position.h"
#include "eval/evaluate.h"
#include "eval/parameters/personality.h"

constinit int32_t LazyLow = -LAZY_NONE;
constinit int32_t LazyHigh = LAZY_NONE;

namespace {

// One position's evaluation for both sides to move, as it lies in memory. Words of 32 bits at most,
// so that no padding comes between.
struct CacheEntry {
    uint32_t keyLow;
    uint32_t keyHigh;
    int16_t score[2]; // by side to move; SCORE_UNKNOWN when not computed yet
    uint16_t optimism[2];
    uint32_t passed[4]; // by colour, as halves of bitboards
    uint32_t attacks[4];
    int16_t materialScore;
    int16_t auxScore;
};
static_assert(sizeof(CacheEntry) == EVAL_CACHE_ENTRY_BYTES);
static_assert(sizeof(CacheEntry::passed) == sizeof Figures.passed);
static_assert(sizeof(CacheEntry::attacks) == sizeof Figures.attacks);

constexpr int16_t SCORE_UNKNOWN = -32700;
constexpr uint64_t EMPTY_EVAL_KEY = 1234567;

constinit CacheEntry* Entries = nullptr;
constinit int32_t EntryCount = 0;

// With this many pawns the side that is ahead in material may do with fewer pieces.
constexpr int ENOUGH_PAWNS = 2;
constexpr int32_t UNITS_WITH_PAWNS = 6;
constexpr int32_t UNITS_WITHOUT_PAWNS = 10;
// What an advanced pawn of the weaker side may be worth beyond its material, centipawns: one step
// before promotion, and two.
constexpr int32_t NEXT_TO_PROMOTE = 100;
constexpr int32_t NEAR_PROMOTION = 50;

} // namespace

// With so little left an advantage in material may not be enough to win.
static bool TooLittleToWin(Colour winner) {
    const bool fewPawns = PieceCount[PAWN][winner] < ENOUGH_PAWNS;
    return PhaseUnits[winner] < (fewPawns ? UNITS_WITHOUT_PAWNS : UNITS_WITH_PAWNS);
}

static int32_t AdvancedPawnHope(Colour loser) {
    const Bitboard pawns = PieceBB[PAWN][loser];
    if (pawns & RelativeRankBB(loser, 6))
        return NEXT_TO_PROMOTE;
    return pawns & RelativeRankBB(loser, 5) ? NEAR_PROMOTION : 0;
}

int32_t LazyMaterialScore() {
    const Colour us = SideToMove;
    const Colour them = ChangeSide(us);
    const int32_t low = us == RootSide ? LazyLow : -LazyHigh;
    const int32_t high = us == RootSide ? LazyHigh : -LazyLow;
    int32_t balance = std::clamp(Material[us] - Material[them], -EVAL_LIMIT, EVAL_LIMIT);
    if (balance < low) {
        if (TooLittleToWin(them))
            return LAZY_NONE;
        balance += AdvancedPawnHope(us);
        return balance < low ? balance : LAZY_NONE;
    }
    if (balance > high) {
        if (TooLittleToWin(us))
            return LAZY_NONE;
        balance -= AdvancedPawnHope(them);
        return balance > high ? balance : LAZY_NONE;
    }
    return LAZY_NONE;
}

static uint64_t KeyOf(const CacheEntry& entry) {
    return uint64_t{entry.keyHigh} << 32 | entry.keyLow;
}

static uint64_t EvalKey(uint64_t placement) {
    return placement ^ CastleKeys[CastleRights];
}

static CacheEntry& SlotOf(uint64_t key) {
    const uint64_t slot = EntryCount == EVAL_CACHE_ENTRIES ? key & (EVAL_CACHE_ENTRIES - 1)
                                                           : key % uint32_t(EntryCount);
    return Entries[slot];
}

static void ReadFigures(const CacheEntry& entry) {
    Figures.AuxScore = entry.auxScore;
    Figures.MaterialScore = entry.materialScore;
    Figures.optimism[WHITE] = entry.optimism[WHITE];
    Figures.optimism[BLACK] = entry.optimism[BLACK];
    std::memcpy(Figures.passed, entry.passed, sizeof Figures.passed);
    std::memcpy(Figures.attacks, entry.attacks, sizeof Figures.attacks);
}

static void WriteFigures(CacheEntry& entry) {
    entry.auxScore = int16_t(Figures.AuxScore);
    entry.materialScore = int16_t(std::clamp(Figures.MaterialScore, -EVAL_LIMIT, EVAL_LIMIT));
    entry.optimism[WHITE] = uint16_t(Figures.optimism[WHITE]);
    entry.optimism[BLACK] = uint16_t(Figures.optimism[BLACK]);
    std::memcpy(entry.passed, Figures.passed, sizeof Figures.passed);
    std::memcpy(entry.attacks, Figures.attacks, sizeof Figures.attacks);
}

// The score of one side to move says nothing about the other's: besides the right to move, the
// attack on a king counts for more when it can go on.
static int32_t EvaluateInto(CacheEntry& entry, uint64_t key) {
    const int32_t score = Evaluate();
    assert(score > SCORE_UNKNOWN && score == int16_t(score));
    if (KeyOf(entry) != key) {
        WriteFigures(entry);
        entry.score[ChangeSide(SideToMove)] = SCORE_UNKNOWN;
        entry.keyLow = uint32_t(key);
        entry.keyHigh = uint32_t(key >> 32);
    }
    entry.score[SideToMove] = int16_t(score);
    return score;
}

void PrefetchEvaluation(uint64_t placement) {
    if (EntryCount <= 0)
        return;
    const CacheEntry* const slot = &SlotOf(EvalKey(placement));
    __builtin_prefetch(slot);
    // An entry is nearly a line of the processor's cache long and mostly lies in two.
    __builtin_prefetch(&slot->auxScore);
}

int32_t EvaluateCached() {
    const int32_t lazy = LazyMaterialScore();
    if (lazy != LAZY_NONE)
        return lazy;
    if (EntryCount <= 0)
        return Evaluate();
    const uint64_t key = EvalKey(PosKey);
    CacheEntry& entry = SlotOf(key);
    if (KeyOf(entry) == key) {
        ReadFigures(entry);
        if (entry.score[SideToMove] > SCORE_UNKNOWN)
            return entry.score[SideToMove];
    }
    return EvaluateInto(entry, key);
}

void SetRootSide(Colour side) {
    if (side != RootSide && Personality.AggressivityWeight != Personality.CowardiceWeight)
        ClearEvalCache();
    RootSide = side;
}

void ClearEvalCache() {
    if (Entries == nullptr)
        return;
    for (int i = 0; i < EntryCount + EVAL_CACHE_SPARE_ENTRIES; i++) {
        Entries[i].keyLow = uint32_t(EMPTY_EVAL_KEY);
        Entries[i].keyHigh = uint32_t(EMPTY_EVAL_KEY >> 32);
    }
}

void SetEvalCacheMemory(void* memory, int32_t count) {
    Entries = static_cast<CacheEntry*>(memory);
    EntryCount = memory == nullptr ? 0 : count;
}
