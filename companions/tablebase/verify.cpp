#include <cstdio>
#include <vector>

#include "commands.h"
#include "companions/shared/files.h"
#include "compressed_file.h"
#include "published.h"
#include "sha256.h"
#include "table_file.h"
#include "table_summary.h"

namespace fs = std::filesystem;

namespace {

struct Tally {
    int right;     // equal to the published table
    int plausible; // none is known, and nothing is wrong at first sight
    int wrong;
};

bool IsPublishedTable(const fs::path& path, int number, Colour side) {
    std::vector<uint8_t> bytes;
    const bool read = path.extension() == COMPRESSED_SUFFIX ? ReadCompressedTable(path, bytes)
                                                            : !ReadWholeFile(path, bytes);
    return read && Sha256(bytes) == PublishedSha256(number, side);
}

void VerifyTable(const fs::path& path, int number, Colour side, Tally& tally) {
    const std::string name = path.filename().string();
    if (IsPublished(number) && IsPublishedTable(path, number, side)) {
        tally.right++;
    } else if (!IsPublished(number) && SummariseTable(path, number, side).Plausible()) {
        std::printf("%s: no checksum is known, its size and values can be right\n", name.c_str());
        tally.plausible++;
    } else {
        std::printf("%s: WRONG\n", name.c_str());
        tally.wrong++;
    }
    std::fflush(stdout);
}

} // namespace

int VerifyTables(const fs::path& directory) {
    Tally tally = {};
    ForEachTableFile(directory, [&](const fs::path& path, int number, Colour side) {
        VerifyTable(path, number, side, tally);
    });
    std::printf("%d tables of up to four men are right, %d wrong; %d others\n", tally.right,
                tally.wrong, tally.plausible);
    return tally.wrong == 0 && tally.right + tally.plausible > 0 ? 0 : 1;
}
