#include "eval/attacker_weight.h"

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "eval/parameters.h"
#include "support/scratch.h"

TEST(AttackerWeight, OfOneToSixAttackersIsChangedAndNeverNegative) {
    const ScratchParameters parameters;
    const auto weights = [](std::array<int32_t, 6> change) {
        Params.AttackerWeightChange = change;
        InitAttackerWeight();
        return std::vector<int32_t>(std::begin(AttackerWeight), std::end(AttackerWeight));
    };
    std::vector<int32_t> expected = {0,   64,  192, 256, 288, 304, 312, 320, 320,
                                     320, 320, 320, 320, 320, 320, 320, 320};
    EXPECT_EQ(expected, weights({}));
    const int32_t changed[] = {65, 0, 0, MAX_ATTACKER_WEIGHT, 0, 302};
    std::copy(std::begin(changed), std::end(changed), expected.begin() + 1);
    EXPECT_EQ(expected, weights({1, -192, -257, INT32_MAX, INT32_MIN, -10}));
    // The changes do not add up.
    EXPECT_EQ(expected, weights({1, -192, -257, INT32_MAX, INT32_MIN, -10}));
}
