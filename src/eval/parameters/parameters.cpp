#include "eval/parameters/parameters.h"

// Files begin with groups of 8, 6, 12 and 10 numbers and the table, whatever else they hold.
static_assert(offsetof(EvalParameters, AttackerWeightChange) == 8 * sizeof(int32_t));
static_assert(offsetof(EvalParameters, MinorUp) == 14 * sizeof(int32_t));
static_assert(offsetof(EvalParameters, RookPair) == 26 * sizeof(int32_t));
static_assert(offsetof(EvalParameters, ImbalanceTable) == 36 * sizeof(int32_t));
static_assert(IMBALANCE_PARAMETER_COUNT == 36 + 2916);

constinit EvalParameters Params = {};
