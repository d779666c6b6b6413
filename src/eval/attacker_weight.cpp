#include "eval/attacker_weight.h"

#include <algorithm>

#include "eval/parameters.h"

namespace {

// One piece alone does little; each further one adds less than the one before.
constexpr int32_t BuiltIn[ATTACKER_COUNTS] = {0,   64,  192, 256, 288, 304, 312, 320, 320,
                                              320, 320, 320, 320, 320, 320, 320, 320};

} // namespace

constinit int32_t AttackerWeight[ATTACKER_COUNTS] = {};

void InitAttackerWeight() {
    std::ranges::copy(BuiltIn, AttackerWeight);
    for (size_t i = 0; i < Params.AttackerWeightChange.size(); i++) {
        const int64_t changed = int64_t{BuiltIn[i + 1]} + Params.AttackerWeightChange[i];
        AttackerWeight[i + 1] =
            int32_t(std::clamp(changed, int64_t{0}, int64_t{MAX_ATTACKER_WEIGHT}));
    }
}
