// What tests of the search share: tables to search with, and nothing that an earlier test has left.
#pragma once

#include <gtest/gtest.h>

// Empties the tables and forgets what searches have learned, their limits and the game.
void ForgetSearches();

// Tests of a search with tables of the default sizes.
class SearchingTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};
