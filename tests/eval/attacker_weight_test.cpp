#include "eval/parameters/attacker_weight.h"

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "eval/parameters/parameters.h"
#include "support/scratch.h"

// The sixth change holds up to fifteen attackers, the sixteenth place is nobody's.
TEST(AttackerWeight, FollowsItsSixChangesAndIsNeverNegative) {
    const ScratchParameters parameters;
    const auto weights = [](std::array<int32_t, 6> change) {
        Params.AttackerWeightChange = change;
        InitAttackerWeight();
        return std::vector<int32_t>(std::begin(AttackerWeight), std::end(AttackerWeight));
    };
    const std::vector<int32_t> changed = {0,   65,  0,   0,   100288, 0,   302, 310, 310,
                                          310, 310, 310, 310, 310,    310, 310, 320};
    for (int i = 0; i < 2; i++) // the changes do not add up
        EXPECT_EQ(changed, weights({1, -192, -257, PARAMETER_LIMIT, -PARAMETER_LIMIT, -10}));
    EXPECT_EQ(std::vector<int32_t>(9, 0), [&] {
        const std::vector<int32_t> none = weights({0, 0, 0, 0, 0, -PARAMETER_LIMIT});
        return std::vector<int32_t>(none.begin() + 7, none.end() - 1);
    }());
}
