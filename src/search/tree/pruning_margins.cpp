#include "search/tree/pruning_margins.h"

namespace {

constexpr PruneBand DefaultBands[PRUNE_BANDS] = {{81, 1}, {323, 0}, {484, 0}};

} // namespace

constinit PruneBand PruneBands[PRUNE_BANDS] = {DefaultBands[0], DefaultBands[1], DefaultBands[2]};

void ResetPruneBands() {
    for (int band = 0; band < PRUNE_BANDS; band++)
        PruneBands[band] = DefaultBands[band];
}
