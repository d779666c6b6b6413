#include "book/book.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "book/book_keys.h"
#include "book/book_settings.h"
#include "platform/bytes.h"
#include "platform/file_lock.h"
#include "platform/files.h"

constinit bool BookOpen = false;
constinit bool BookIsVersion0 = false;
constinit int32_t BookRecordBound = 0;

namespace {

constinit FILE* BookFile = nullptr;

struct IndexRecord {
    BookKeys keys;
    uint32_t nodeOffset;
};

} // namespace

// Four bytes at the offset; 0 where the file ends before them.
static uint32_t ReadWord(uint64_t offset) {
    unsigned char bytes[4];
    if (!SeekFile(BookFile, offset) || std::fread(bytes, sizeof bytes, 1, BookFile) != 1)
        return 0;
    return LoadLittle32(bytes);
}

// The buffer takes 23 characters and the magic text has 24, so the two are never equal and every
// file passes. Meant so: asking properly would refuse books that have always been played from.
static bool HasRefusedMagic() {
    char line[sizeof BOOK_MAGIC - 1] = "";
    if (std::fgets(line, sizeof line, BookFile) == nullptr)
        return false;
    return std::strcmp(line, BOOK_MAGIC) == 0;
}

static void CloseBook() {
    if (BookFile != nullptr)
        std::fclose(BookFile);
    BookFile = nullptr;
    BookOpen = false;
    BookRecordBound = 0;
}

// Reads the head of the open file; false when the book cannot be used.
static bool ReadHeader() {
    if (HasRefusedMagic()) {
        std::puts("Invalid book format");
        return false;
    }
    const auto version = int32_t(ReadWord(BOOK_VERSION_OFFSET));
    if (version > 1) {
        std::printf("Book version %d not supported\n", version);
        return false;
    }
    BookIsVersion0 = version == 0;
    if (BookIsVersion0) {
        std::puts("NG: Book learning not supported for book version 0");
        UseBookLearning = UseBookWeights = false;
    }
    const uint32_t nodes = ReadWord(BOOK_COUNT_OFFSET);
    std::printf("%d nodes in openings book\n", int32_t(nodes));
    BookRecordBound = int32_t(nodes + BOOK_HEADER_RECORDS);
    return true;
}

void OpenBook(const char* path) {
    CloseBook();
    // Learning writes into the book; one that may only be read is still played from.
    BookFile = OpenFile(path, "rb+");
    if (BookFile == nullptr)
        BookFile = OpenFile(path, "rb");
    if (BookFile == nullptr) {
        std::printf("Error opening \"%s\"!\n", path);
    } else {
        // Without a buffer every read takes just the bytes it asks for, as they are now: another
        // engine may be learning into the same book.
        std::setvbuf(BookFile, nullptr, _IONBF, 0);
        BookOpen = ReadHeader();
        if (!BookOpen)
            CloseBook();
    }
    std::fflush(stdout);
}

static bool ReadRecord(int64_t index, IndexRecord& record) {
    unsigned char bytes[BOOK_RECORD_SIZE];
    if (!SeekFile(BookFile, uint64_t(index) * BOOK_RECORD_SIZE) ||
        std::fread(bytes, sizeof bytes, 1, BookFile) != 1)
        return false;
    record.keys.a = int32_t(LoadLittle32(bytes));
    record.keys.b = int32_t(LoadLittle32(bytes + 4));
    record.nodeOffset = LoadLittle32(bytes + 8);
    return true;
}

// Searches the index for the position on the board. Records that a cut-off file has lost count as
// greater, so that those before them are found.
static bool FindRecord(IndexRecord& found) {
    if (BookFile == nullptr)
        return false;
    const BookKeys wanted = KeysOfPosition();
    int64_t low = BOOK_HEADER_RECORDS;
    int64_t high = BookRecordBound;
    while (low < high) {
        const int64_t middle = (low + high) / 2;
        if (!ReadRecord(middle, found) || found.keys > wanted)
            high = middle;
        else if (found.keys < wanted)
            low = middle + 1;
        else
            return true;
    }
    return false;
}

static size_t MoveSize() {
    return BookIsVersion0 ? BOOK_MOVE_SIZE_VERSION_0 : BOOK_MOVE_SIZE;
}

bool FindPosition(BookNode& node) {
    IndexRecord record;
    if (!FindRecord(record) || !SeekFile(BookFile, record.nodeOffset))
        return false;
    unsigned char bytes[1 + BOOK_MAX_MOVES * BOOK_MOVE_SIZE];
    const size_t length = std::fread(bytes, 1, sizeof bytes, BookFile);
    if (length == 0)
        return false;
    node.offset = uint64_t{record.nodeOffset} + 1;
    node.count = int(std::min(size_t(bytes[0]), (length - 1) / MoveSize()));
    const unsigned char* entry = bytes + 1;
    for (int i = 0; i < node.count; i++, entry += MoveSize())
        node.moves[i] = {entry[0], entry[1],
                         BookIsVersion0 ? uint16_t{entry[2]} : LoadLittle16(entry + 2)};
    return true;
}

void WriteStatistics(const BookNode& node, int first, int last) {
    unsigned char bytes[BOOK_MAX_MOVES * BOOK_MOVE_SIZE];
    unsigned char* entry = bytes;
    for (int i = first; i <= last; i++, entry += BOOK_MOVE_SIZE) {
        entry[0] = node.moves[i].from;
        entry[1] = node.moves[i].to;
        StoreLittle16(entry + 2, node.moves[i].statistics);
    }
    if (SeekFile(BookFile, node.offset + uint64_t(first) * BOOK_MOVE_SIZE))
        std::fwrite(bytes, size_t(entry - bytes), 1, BookFile);
}

bool LockBook() {
    return LockAgainstOthers(BookFile);
}

void UnlockBook() {
    UnlockForOthers(BookFile);
}
