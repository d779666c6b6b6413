// The cached evaluation that the searches call: lazy material exit, cache, full evaluation.
#pragma once

#include "board/position.h"

// One position's evaluation for both sides to move, as it lies in memory: 52 bytes, unaligned.
struct EvalCacheEntry {
    uint32_t keyLow;
    uint32_t keyHigh;
    int16_t score[2];  // by side to move; EVAL_UNKNOWN when not computed yet
    uint16_t optimism[2];
    uint32_t masks[8];  // four 64-bit masks, low word first
    int16_t materialScore;
    int16_t auxScore;
};
static_assert(sizeof(EvalCacheEntry) == 52);

constexpr int16_t EVAL_UNKNOWN = -32700;
constexpr int EVAL_CACHE_ENTRIES = 524288;

// The array that hash memory allocates, EvalCacheCount + 2 entries; a count of 0 (before start-up
// has allocated it) switches the cache off.
extern EvalCacheEntry* EvalCache;
extern int32_t EvalCacheCount;

// Window of the lazy material exit, centipawns from the view of `RootSide`; set by the search
// driver before each iteration.
extern int32_t LazyLow;
extern int32_t LazyHigh;

// LAZY_NONE, or the material balance for the side to move when it lies so far outside the lazy
// window that no other term could bring it back.
constexpr int32_t LAZY_NONE = 32700;
int32_t LazyMaterialScore();

// Score of the position in centipawns from the view of the side to move, taken from the lazy
// exit, the cache or a full evaluation.
int32_t EvaluateCached();

// Empties every slot.
void ClearEvalCache();
