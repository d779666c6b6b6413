// The cached evaluation that the searches call: lazy material exit, cache, full evaluation.
#pragma once

#include <cstdint>

#include "board/types.h"

constexpr int32_t EVAL_CACHE_ENTRIES = 524288;
constexpr int EVAL_CACHE_ENTRY_BYTES = 52;
constexpr int EVAL_CACHE_SPARE_ENTRIES = 2;

// Window of the lazy material exit, centipawns from the view of `RootSide`; set by the search
// driver before each iteration. At start it is so wide that no balance lies outside.
extern int32_t LazyLow;
extern int32_t LazyHigh;

// LAZY_NONE, or the material balance for the side to move when it lies so far outside the lazy
// window that no other term could bring it back.
constexpr int32_t LAZY_NONE = 32700;
int32_t LazyMaterialScore();

// Score of the position in centipawns from the view of the side to move, taken from the lazy
// exit, the cache or a full evaluation. The figures of `eval/figures` are those of the latest full
// or cached evaluation: a lazy exit leaves them as they are, and the cache does not keep the
// phases. A cached score keeps the fading by quiet plies that it was computed with.
int32_t EvaluateCached();

// Begins to fetch from memory the slot of the position with that placement.
void PrefetchEvaluation(uint64_t placement);

// Sets RootSide. When the personality weighs the two kings differently, what is remembered is of no
// use to the other side.
void SetRootSide(Colour side);

// Empties every slot.
void ClearEvalCache();

// Takes over memory for `count` entries and the spare ones behind them, aligned for 32-bit words;
// for hash memory only. Without memory every evaluation is a full one.
void SetEvalCacheMemory(void* memory, int32_t count);
