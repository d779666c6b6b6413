// What tests of registered tablebases share: real tables, invented ones, and a clean end.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "board/types.h"
#include "support/flipped.h"
#include "support/scratch.h"

// Runs in an empty directory; afterwards no table is registered.
class TablebaseTest : public testing::Test {
protected:
    void TearDown() override;

    // Registers the tables of the directories and gives them a cache of the default size. Returns
    // the men of the largest class.
    int Register(const std::string& pathList);
    // What that prints.
    std::string Complaint(const std::string& pathList);

    ScratchDirectory scratch;
};

// A directory with the published tables of king and queen, rook or pawn against king.
extern const char* const ThreeMenTables;
std::string ThreeMenTable(const std::string& name);

constexpr int32_t NOT_FOUND = 99999;
// What the probe tells of a position, from the side to move.
int32_t ProbedScore(const char* fen);

// A file's text for a table in which that position has an entry, and all others are draws.
std::string TableWith(const char* fen, Colour side, char entry);
