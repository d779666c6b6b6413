#include "book_writer.h"

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/bytes.h"

namespace fs = std::filesystem;

namespace {

using Entries = std::span<const BookEntry>;

constexpr uint32_t BOOK_VERSION = 1;

// What a book consists of, counted before anything is written.
struct BookCounts {
    uint64_t positions = 0;
    uint64_t moves = 0;
    uint64_t killed = 0;

    uint64_t IndexEnd() const {
        return BOOK_HEADER_SIZE + positions * BOOK_RECORD_SIZE;
    }
    uint64_t FileSize() const {
        return IndexEnd() + positions + moves * BOOK_MOVE_SIZE;
    }
};

} // namespace

// Takes the moves of the first position off the rest; more than a node can hold are cut.
static Entries TakeNode(Entries& rest) {
    const BookKeys keys = rest[0].keys;
    const auto end = std::ranges::find_if(rest, [&](const BookEntry& e) { return e.keys != keys; });
    const Entries node = rest.first(size_t(end - rest.begin()));
    rest = rest.subspan(node.size());
    return node.first(std::min(node.size(), size_t{BOOK_MAX_MOVES}));
}

static BookCounts CountEntries(Entries entries) {
    BookCounts counts;
    while (!entries.empty()) {
        const Entries node = TakeNode(entries);
        counts.positions++;
        counts.moves += node.size();
        counts.killed += uint64_t(std::ranges::count(node, BOOK_KILLED, &BookEntry::statistics));
    }
    return counts;
}

static void WriteHeader(FILE* file, uint64_t positions) {
    unsigned char header[BOOK_HEADER_SIZE] = {};
    std::memcpy(header, BOOK_MAGIC, BOOK_VERSION_OFFSET);
    StoreLittle32(header + BOOK_VERSION_OFFSET, BOOK_VERSION);
    StoreLittle32(header + BOOK_COUNT_OFFSET, uint32_t(positions));
    std::fwrite(header, sizeof header, 1, file);
}

static void WriteIndex(FILE* file, Entries entries, uint64_t nodeOffset) {
    while (!entries.empty()) {
        const Entries node = TakeNode(entries);
        unsigned char record[BOOK_RECORD_SIZE];
        StoreLittle32(record, uint32_t(node[0].keys.a));
        StoreLittle32(record + 4, uint32_t(node[0].keys.b));
        StoreLittle32(record + 8, uint32_t(nodeOffset));
        std::fwrite(record, sizeof record, 1, file);
        nodeOffset += 1 + node.size() * BOOK_MOVE_SIZE;
    }
}

static void WriteNodes(FILE* file, Entries entries) {
    while (!entries.empty()) {
        const Entries node = TakeNode(entries);
        std::fputc(int(node.size()), file);
        for (const BookEntry& entry : node) {
            unsigned char move[BOOK_MOVE_SIZE] = {entry.from, entry.to};
            StoreLittle16(move + 2, entry.statistics);
            std::fwrite(move, sizeof move, 1, file);
        }
    }
}

static bool WriteEntries(FILE* file, Entries entries, const BookCounts& counts) {
    WriteHeader(file, counts.positions);
    WriteIndex(file, entries, counts.IndexEnd());
    WriteNodes(file, entries);
    return std::fflush(file) == 0 && std::ferror(file) == 0;
}

// Writes the unfinished file and gives it its name; what happened otherwise is the result.
static std::error_code WriteFile(const char* path, Entries entries, const BookCounts& counts) {
    const std::string unfinished = std::string(path) + ".unfinished";
    FILE* const file = std::fopen(unfinished.c_str(), "wb");
    if (file == nullptr)
        return {errno, std::generic_category()};
    std::error_code error;
    if (!WriteEntries(file, entries, counts))
        error.assign(errno, std::generic_category());
    if (std::fclose(file) != 0 && !error)
        error.assign(errno, std::generic_category());
    if (!error)
        fs::rename(unfinished, path, error);
    std::error_code ignored;
    if (error)
        fs::remove(unfinished, ignored);
    return error;
}

bool WriteBook(const char* path, Entries entries) {
    const BookCounts counts = CountEntries(entries);
    std::error_code error;
    // A new file may take the place of a file, never that of a device.
    if (fs::exists(path, error) && !fs::is_regular_file(path, error))
        error = std::make_error_code(std::errc::not_supported);
    else if (counts.FileSize() > UINT32_MAX)
        error = std::make_error_code(std::errc::file_too_large);
    else
        error = WriteFile(path, entries, counts);
    if (error) {
        std::fprintf(stderr, "Cannot write %s: %s\n", path, error.message().c_str());
        return false;
    }
    std::printf("%s: %" PRIu64 " positions, %" PRIu64 " moves, %" PRIu64 " of them killed, %" PRIu64
                " bytes\n",
                path, counts.positions, counts.moves, counts.killed, counts.FileSize());
    return true;
}
