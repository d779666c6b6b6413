// Table entries asked for from memory before they are needed.
#pragma once

#include "board/keys.h"
#include "board/position.h"
#include "eval/eval_cache.h"
#include "search/transposition.h"

// Begins to fetch what the tables know of the position after the move, which is about to be made.
// What is done until then hides part of the wait, which is the longest of a node.
inline void FetchAhead(Move move) {
    const uint64_t placement = NearlyKeyAfter(PosKey, SideToMove, move);
    PrefetchHash(placement);
    PrefetchEvaluation(placement);
}
