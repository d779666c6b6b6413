// How often each value stands in a table, and whether it can be a table of its class.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>

#include "tablebase/classes.h"

struct TableSummary {
    uint64_t bytes;   // of the plain table
    uint64_t entries; // as many as the class has at most
    int width;        // bytes per entry, by the table's size; 0 when it is too long
    bool readable;
    // By byte; of tables with one byte per entry.
    std::array<uint64_t, 256> count;

    uint64_t Wins() const;
    uint64_t Losses() const;
    // Moves; -1 when there is none.
    int LongestWin() const;
    int LongestLoss() const;
    // Whether there are as many entries as there can be and no values that are none.
    bool Plausible() const;
};

// Of a plain file, or of a compressed one by its name.
TableSummary SummariseTable(const std::filesystem::path& path, int classNumber, Colour side);
