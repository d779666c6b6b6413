// The runtime's random sequence, on which hash keys and book choices hang.

#include <gtest/gtest.h>

#include "platform/runtime_rand.h"

namespace {

class RuntimeRand : public testing::Test {
protected:
    void TearDown() override {
        SeedRand(1);
    }
};

TEST_F(RuntimeRand, GivesTheKnownSequenceOfTheFirstSeed) {
    SeedRand(1);
    for (const int expected : {41, 18467, 6334, 26500, 19169, 15724, 11478, 29358, 26962, 24464})
        EXPECT_EQ(Rand(), expected);
}

TEST_F(RuntimeRand, TakesAllBitsOfTheSeed) {
    // By hand: (seed * 214013 + 2531011) modulo 2^32, bits 16 to 30.
    SeedRand(65536);
    EXPECT_EQ(Rand(), 17443);
    SeedRand(4294967295U);
    EXPECT_EQ(Rand(), 35);
}

} // namespace
