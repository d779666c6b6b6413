#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <thread>
#include <vector>

#include "commands.h"
#include "compressed_file.h"
#include "table_file.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* CompressedSuffix = ".emd";

struct Tally {
    int tables;
    int failed;
    uint64_t plainBytes;
    uint64_t compressedBytes;
};

void Fail(Tally& tally, const std::string& trouble) {
    std::printf("%s\n", trouble.c_str());
    tally.failed++;
}

void Count(Tally& tally, const std::string& name, uint64_t plain, uint64_t compressed) {
    std::printf("%-10s %12" PRIu64 " bytes plain %12" PRIu64 " compressed\n", name.c_str(), plain,
                compressed);
    tally.tables++;
    tally.plainBytes += plain;
    tally.compressedBytes += compressed;
}

// What has been written is read again and compared: afterwards the plain table may be deleted.
void CompressOne(const fs::path& from, const fs::path& to, Tally& tally) {
    std::vector<uint8_t> plain;
    if (!ReadTableFile(from, plain))
        return Fail(tally, from.string() + ": cannot be read");
    const int threads = std::clamp(int(std::thread::hardware_concurrency()), 1, 8);
    const std::vector<uint8_t> compressed = CompressTable(plain, threads);
    const std::string trouble = WriteTableFile(to, compressed);
    if (!trouble.empty())
        return Fail(tally, trouble);
    std::vector<uint8_t> again;
    if (!ReadCompressedTable(to, again) || again != plain)
        return Fail(tally, to.string() + ": cannot be read back");
    Count(tally, from.filename().string(), plain.size(), compressed.size());
}

void DecompressOne(const fs::path& from, const fs::path& to, Tally& tally) {
    std::vector<uint8_t> plain;
    if (!ReadCompressedTable(from, plain))
        return Fail(tally, from.string() + ": damaged, or not of this program's making");
    const std::string trouble = WriteTableFile(to, plain);
    if (!trouble.empty())
        return Fail(tally, trouble);
    std::error_code error;
    Count(tally, to.filename().string(), plain.size(), fs::file_size(from, error));
}

// Walks the tables in one directory whose other form is not in the other directory yet.
int Convert(CommandWords words, const char* fromSuffix, const char* toSuffix,
            void (*convert)(const fs::path& from, const fs::path& to, Tally& tally)) {
    if (words.empty() || words.size() > 2)
        return WRONG_USAGE;
    const fs::path target = words.back();
    std::error_code error;
    fs::create_directories(target, error);
    Tally tally = {};
    for (int number = 1; number <= TABLEBASE_CLASSES; number++) {
        for (const Colour side : {WHITE, BLACK}) {
            const std::string name = TableFileName(number, side);
            const fs::path from = fs::path(words[0]) / (name + fromSuffix);
            const fs::path to = target / (name + toSuffix);
            if (fs::exists(from, error) && !fs::exists(to, error))
                convert(from, to, tally);
            std::fflush(stdout);
        }
    }
    std::printf("%d tables, %" PRIu64 " bytes plain, %" PRIu64 " compressed; %d failed\n",
                tally.tables, tally.plainBytes, tally.compressedBytes, tally.failed);
    return tally.failed == 0 ? 0 : 1;
}

} // namespace

int CompressTables(CommandWords words) {
    return Convert(words, "", CompressedSuffix, CompressOne);
}

int DecompressTables(CommandWords words) {
    return Convert(words, CompressedSuffix, "", DecompressOne);
}
