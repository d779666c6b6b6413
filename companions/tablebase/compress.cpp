#include <cinttypes>
#include <cstdio>
#include <vector>

#include "commands.h"
#include "companions/shared/files.h"
#include "companions/shared/progress.h"
#include "compressed_file.h"
#include "table_file.h"

namespace fs = std::filesystem;

namespace {

struct Tally {
    int tables;
    int failed;
    uint64_t plainBytes;
    uint64_t compressedBytes;
};

void Fail(Tally& tally, const std::string& trouble) {
    ClearProgressLine();
    std::printf("%s\n", trouble.c_str());
    tally.failed++;
}

void Count(Tally& tally, const std::string& name, uint64_t plain, uint64_t compressed) {
    ClearProgressLine();
    std::printf("%-10s %12" PRIu64 " bytes plain %12" PRIu64 " compressed\n", name.c_str(), plain,
                compressed);
    tally.tables++;
    tally.plainBytes += plain;
    tally.compressedBytes += compressed;
}

// What has been written is read again and compared: afterwards the plain table may be deleted.
void CompressOne(const fs::path& from, const fs::path& to, int threads, Tally& tally) {
    std::vector<uint8_t> plain;
    if (const std::error_code error = ReadWholeFile(from, plain))
        return Fail(tally, from.string() + ": " + error.message());
    const std::vector<uint8_t> compressed = CompressTable(plain, threads);
    const std::string trouble = WriteTableFile(to, compressed);
    if (!trouble.empty())
        return Fail(tally, trouble);
    std::vector<uint8_t> again;
    if (!ReadCompressedTable(to, again) || again != plain)
        return Fail(tally, to.string() + ": cannot be read back");
    Count(tally, from.filename().string(), plain.size(), compressed.size());
}

void DecompressOne(const fs::path& from, const fs::path& to, int, Tally& tally) {
    std::vector<uint8_t> plain;
    if (!ReadCompressedTable(from, plain))
        return Fail(tally, from.string() + ": damaged, or not of this program's making");
    const std::string trouble = WriteTableFile(to, plain);
    if (!trouble.empty())
        return Fail(tally, trouble);
    std::error_code error;
    Count(tally, to.filename().string(), plain.size(), fs::file_size(from, error));
}

struct Conversion {
    fs::path from;
    fs::path to;
    uint64_t bytes;
};

// The tables in one directory whose other form is not in the other directory yet.
std::vector<Conversion> ConversionsToDo(const fs::path& directory, const fs::path& target,
                                        const char* fromSuffix, const char* toSuffix) {
    std::vector<Conversion> list;
    for (int number = 1; number <= TABLEBASE_CLASSES; number++) {
        for (const Colour side : {WHITE, BLACK}) {
            const std::string name = TableFileName(number, side);
            const fs::path from = directory / (name + fromSuffix);
            const fs::path to = target / (name + toSuffix);
            std::error_code error;
            if (!fs::exists(from, error) || fs::exists(to, error))
                continue;
            const uintmax_t size = fs::file_size(from, error);
            list.push_back({from, to, error ? 0 : size});
        }
    }
    return list;
}

using Convert = void (*)(const fs::path& from, const fs::path& to, int threads, Tally& tally);

int ConvertAll(const ConvertSettings& settings, const char* fromSuffix, const char* toSuffix,
               Convert convert) {
    const fs::path& target = settings.target.empty() ? settings.directory : settings.target;
    std::error_code ignored;
    fs::create_directories(target, ignored);
    const std::vector<Conversion> list =
        ConversionsToDo(settings.directory, target, fromSuffix, toSuffix);
    uint64_t work = 0;
    for (const Conversion& conversion : list)
        work += conversion.bytes;
    Progress progress("converting", work, "bytes");
    Tally tally = {};
    uint64_t done = 0;
    for (const Conversion& conversion : list) {
        convert(conversion.from, conversion.to, settings.threads, tally);
        std::fflush(stdout);
        done += conversion.bytes;
        progress.Tell(done, done);
    }
    ClearProgressLine();
    std::printf("%d tables, %" PRIu64 " bytes plain, %" PRIu64 " compressed; %d failed\n",
                tally.tables, tally.plainBytes, tally.compressedBytes, tally.failed);
    return tally.failed == 0 ? 0 : 1;
}

} // namespace

int CompressTables(const ConvertSettings& settings) {
    return ConvertAll(settings, "", COMPRESSED_SUFFIX, CompressOne);
}

int DecompressTables(const ConvertSettings& settings) {
    return ConvertAll(settings, COMPRESSED_SUFFIX, "", DecompressOne);
}
