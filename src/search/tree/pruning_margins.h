// The margins of pruning near the horizon, which six console commands set for tuning.
#pragma once

#include <cstdint>

// One band for each of the last three plies: at a node with less than 2, 2.5 or 4 plies left,
// quiet moves other than checks are left out when the static evaluation plus margin plus
// coefficient times both sides' phase units does not reach alpha. Centipawns.
constexpr int PRUNE_BANDS = 3;
struct PruneBand {
    int32_t margin;
    int32_t coefficient;
};
extern PruneBand PruneBands[PRUNE_BANDS];
