#include <cinttypes>
#include <cstdio>

#include "commands.h"
#include "table_file.h"
#include "table_summary.h"
#include "table_value.h"

namespace fs = std::filesystem;

namespace {

void PrintMoves(int moves) {
    if (moves >= 0)
        std::printf(" %4d", moves);
    else
        std::printf("    -");
}

void PrintTable(const fs::path& path, uintmax_t size, int number, Colour side) {
    const TableSummary summary = SummariseTable(path, number, side);
    std::printf("%-14s %12ju", path.filename().string().c_str(), size);
    if (!summary.Plausible()) {
        std::printf("  is no table of this class\n");
        return;
    }
    std::printf(" %11" PRIu64, summary.bytes / uint64_t(summary.width));
    if (summary.width == 1) {
        std::printf(" %11" PRIu64, summary.Wins());
        PrintMoves(summary.LongestWin());
        std::printf(" %11" PRIu64 " %11" PRIu64, summary.count[VALUE_DRAW], summary.Losses());
        PrintMoves(summary.LongestLoss());
        std::printf(" %11" PRIu64, summary.count[VALUE_BROKEN]);
    }
    std::printf("\n");
}

} // namespace

int ListTables(const fs::path& directory) {
    std::printf("%-14s %12s %11s %11s %4s %11s %11s %4s %11s\n", "table", "bytes", "entries",
                "wins", "max", "draws", "losses", "max", "broken");
    int tables = 0;
    uintmax_t bytes = 0;
    ForEachTableFile(directory, [&](const fs::path& path, int number, Colour side) {
        std::error_code error;
        const uintmax_t size = fs::file_size(path, error);
        PrintTable(path, error ? 0 : size, number, side);
        bytes += error ? 0 : size;
        tables++;
    });
    std::printf("%d tables, %ju bytes\n", tables, bytes);
    return tables > 0 ? 0 : 1;
}
