#include "table_summary.h"

#include <cstdio>
#include <span>
#include <vector>

#include "compressed_file.h"
#include "table_file.h"
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

void CountBytes(std::span<const uint8_t> bytes, TableSummary& summary) {
    for (const uint8_t byte : bytes)
        summary.count[byte]++;
    summary.bytes += bytes.size();
}

// Plain tables may be too long for the memory. False when not all can be read.
bool CountPlainFile(const fs::path& path, TableSummary& summary) {
    std::FILE* const file = std::fopen(path.string().c_str(), "rb");
    if (file == nullptr)
        return false;
    std::vector<uint8_t> part(PART);
    while (const size_t got = std::fread(part.data(), 1, part.size(), file))
        CountBytes(std::span(part).first(got), summary);
    const bool read = std::ferror(file) == 0;
    std::fclose(file);
    return read;
}

bool CountCompressedFile(const fs::path& path, TableSummary& summary) {
    std::vector<uint8_t> plain;
    if (!ReadCompressedTable(path, plain))
        return false;
    CountBytes(plain, summary);
    return true;
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
    summary.entries = TableEntries(classNumber, side);
    summary.readable = path.extension() == COMPRESSED_SUFFIX ? CountCompressedFile(path, summary)
                                                             : CountPlainFile(path, summary);
    const EntryWidth known = TablebaseClasses[size_t(classNumber)].width;
    if (summary.bytes <= summary.entries && known != WIDTH_TWO_BYTES)
        summary.width = 1;
    else if (summary.bytes <= 2 * summary.entries && known != WIDTH_ONE_BYTE)
        summary.width = 2;
    return summary;
}
