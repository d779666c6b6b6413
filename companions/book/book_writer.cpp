#include "book_writer.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <string>
#include <system_error>

#include "platform/bytes.h"
#include "platform/file_writer.h"

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

static void WriteHeader(FileWriter& file, uint64_t positions) {
    uint8_t header[BOOK_HEADER_SIZE] = {};
    std::memcpy(header, BOOK_MAGIC, BOOK_VERSION_OFFSET);
    StoreLittle32(header + BOOK_VERSION_OFFSET, BOOK_VERSION);
    StoreLittle32(header + BOOK_COUNT_OFFSET, uint32_t(positions));
    file.Write(header);
}

static void WriteIndex(FileWriter& file, Entries entries, uint64_t nodeOffset) {
    while (!entries.empty()) {
        const Entries node = TakeNode(entries);
        uint8_t record[BOOK_RECORD_SIZE];
        StoreLittle32(record, uint32_t(node[0].keys.a));
        StoreLittle32(record + 4, uint32_t(node[0].keys.b));
        StoreLittle32(record + 8, uint32_t(nodeOffset));
        file.Write(record);
        nodeOffset += 1 + node.size() * BOOK_MOVE_SIZE;
    }
}

static void WriteNodes(FileWriter& file, Entries entries) {
    while (!entries.empty()) {
        const Entries node = TakeNode(entries);
        const uint8_t count[] = {uint8_t(node.size())};
        file.Write(count);
        for (const BookEntry& entry : node) {
            uint8_t move[BOOK_MOVE_SIZE] = {entry.from, entry.to};
            StoreLittle16(move + 2, entry.statistics);
            file.Write(move);
        }
    }
}

static std::error_code WriteEntries(const std::string& path, Entries entries,
                                    const BookCounts& counts) {
    if (counts.FileSize() > UINT32_MAX)
        return std::make_error_code(std::errc::file_too_large);
    FileWriter file(path);
    WriteHeader(file, counts.positions);
    WriteIndex(file, entries, counts.IndexEnd());
    WriteNodes(file, entries);
    return file.Finish();
}

bool WriteBook(const std::string& path, Entries entries) {
    const BookCounts counts = CountEntries(entries);
    if (const std::error_code error = WriteEntries(path, entries, counts)) {
        std::fprintf(stderr, "Cannot write %s: %s\n", path.c_str(), error.message().c_str());
        return false;
    }
    std::printf("%s: %" PRIu64 " positions, %" PRIu64 " moves, %" PRIu64 " of them killed, %" PRIu64
                " bytes\n",
                path.c_str(), counts.positions, counts.moves, counts.killed, counts.FileSize());
    return true;
}
