#include "search/tree/pruning_margins.h"

constinit PruneBand PruneBands[PRUNE_BANDS] = {{81, 1}, {323, 0}, {484, 0}};
