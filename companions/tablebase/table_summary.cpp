#include "table_summary.h"

#include <cstdio>
#include <vector>

#include "table_value.h"
#include "tablebase/table_index.h"

namespace fs = std::filesystem;

namespace {

constexpr size_t PART = 1 << 20; // bytes read at a time

uint64_t Sum(const std::array<uint64_t, 256>& count, TableValue from, TableValue to) {
    uint64_t sum = 0;
    for (int value = from; value <= to; value++)
        sum += count[uint8_t(value)];
    return sum;
}

// Adds the bytes of the file; false when they cannot all be read.
bool CountBytes(const fs::path& path, TableSummary& summary) {
    std::FILE* const file = std::fopen(path.string().c_str(), "rb");
    if (file == nullptr)
        return false;
    std::vector<uint8_t> part(PART);
    uint64_t total = 0;
    while (const size_t got = std::fread(part.data(), 1, part.size(), file)) {
        for (size_t i = 0; i < got; i++)
            summary.count[part[i]]++;
        total += got;
    }
    std::fclose(file);
    return total == summary.bytes;
}

} // namespace

uint64_t TableSummary::Wins() const {
    return Sum(count, WinIn(LONGEST_WIN), WinIn(1));
}

uint64_t TableSummary::Losses() const {
    return Sum(count, LossIn(0), LossIn(LONGEST_LOSS));
}

int TableSummary::LongestWin() const {
    for (int moves = LONGEST_WIN; moves > 0; moves--) {
        if (count[uint8_t(WinIn(moves))] != 0)
            return moves;
    }
    return -1;
}

int TableSummary::LongestLoss() const {
    for (int moves = LONGEST_LOSS; moves >= 0; moves--) {
        if (count[uint8_t(LossIn(moves))] != 0)
            return moves;
    }
    return -1;
}

bool TableSummary::Plausible() const {
    return readable && bytes != 0 && width != 0 &&
           (width == 2 || Sum(count, INT8_MIN, TableValue(LossIn(0) - 1)) == 0);
}

TableSummary SummariseTable(const fs::path& path, int classNumber, Colour side) {
    TableSummary summary = {};
    std::error_code error;
    summary.entries = TableEntries(classNumber, side);
    summary.bytes = fs::file_size(path, error);
    if (error) {
        summary.bytes = 0;
        return summary;
    }
    const EntryWidth known = TablebaseClasses[size_t(classNumber)].width;
    if (summary.bytes <= summary.entries && known != WIDTH_TWO_BYTES)
        summary.width = 1;
    else if (summary.bytes <= 2 * summary.entries && known != WIDTH_ONE_BYTE)
        summary.width = 2;
    summary.readable = CountBytes(path, summary);
    return summary;
}
