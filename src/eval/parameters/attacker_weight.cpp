#include "eval/parameters/attacker_weight.h"

#include <algorithm>

#include "eval/parameters/parameters.h"

namespace {

// One piece alone does little; each further one adds less than the one before.
constexpr int32_t BuiltIn[ATTACKER_COUNTS] = {0,   64,  192, 256, 288, 304, 312, 320, 320,
                                              320, 320, 320, 320, 320, 320, 320, 320};

} // namespace

constinit int32_t AttackerWeight[ATTACKER_COUNTS] = {};

// The last change holds for all greater numbers of attackers but the greatest, which stays as it
// is.
void InitAttackerWeight() {
    const auto& changes = Params.AttackerWeightChange;
    std::ranges::copy(BuiltIn, AttackerWeight);
    for (size_t attackers = 1; attackers < ATTACKER_COUNTS - 1; attackers++) {
        const int32_t change = changes[std::min(attackers, changes.size()) - 1];
        AttackerWeight[attackers] = std::max(BuiltIn[attackers] + change, 0);
    }
}
