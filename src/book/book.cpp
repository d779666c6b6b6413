#include "book/book.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "book/book_keys.h"
#include "book/book_settings.h"
#include "book/unwritten.h"
#include "platform/bytes.h"
#include "platform/file_lock.h"
#include "platform/files.h"

namespace {

struct OpenedBook {
    FILE* file = nullptr;    // none unless the book can be used
    bool version0 = false;   // its moves carry no statistics
    int32_t recordBound = 0; // N + 3: the header counts as three records
};

constinit OpenedBook Opened = {};

struct IndexRecord {
    BookKeys keys;
    uint32_t nodeOffset;
};

} // namespace

// Four bytes at the offset; 0 where the file ends before them.
static uint32_t ReadWord(uint64_t offset) {
    unsigned char bytes[4];
    if (!SeekFile(Opened.file, offset) || std::fread(bytes, sizeof bytes, 1, Opened.file) != 1)
        return 0;
    return LoadLittle32(bytes);
}

// The buffer takes 23 characters and the magic text has 24, so the two are never equal and every
// file passes. Meant so: asking properly would refuse books that have always been played from.
static bool HasRefusedMagic() {
    char line[sizeof BOOK_MAGIC - 1] = "";
    if (std::fgets(line, sizeof line, Opened.file) == nullptr)
        return false;
    return std::strcmp(line, BOOK_MAGIC) == 0;
}

static void CloseBook() {
    if (Opened.file != nullptr)
        std::fclose(Opened.file);
    Opened = {};
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
    Opened.version0 = version == 0;
    if (Opened.version0) {
        std::puts("NG: Book learning not supported for book version 0");
        Book.UseBookLearning = Book.UseBookWeights = false;
    }
    const uint32_t nodes = ReadWord(BOOK_COUNT_OFFSET);
    std::printf("%d nodes in openings book\n", int32_t(nodes));
    Opened.recordBound = int32_t(nodes + BOOK_HEADER_RECORDS);
    return true;
}

void OpenBook(const char* path, bool silent) {
    CloseBook();
    ForgetUnwritten(OPENING_BOOK);
    // Learning writes into the book; one that may only be read is still played from.
    Opened.file = OpenFile(path, "rb+");
    if (Opened.file == nullptr)
        Opened.file = OpenFile(path, "rb");
    if (Opened.file == nullptr) {
        if (!silent)
            std::printf("Error opening \"%s\"!\n", path);
    } else {
        // Without a buffer every read takes just the bytes it asks for, as they are now: another
        // engine may be learning into the same book.
        std::setvbuf(Opened.file, nullptr, _IONBF, 0);
        if (!ReadHeader())
            CloseBook();
    }
    std::fflush(stdout);
}

bool BookIsOpen() {
    return Opened.file != nullptr;
}

bool BookHasStatistics() {
    return BookIsOpen() && !Opened.version0;
}

static bool ReadRecord(int64_t index, IndexRecord& record) {
    unsigned char bytes[BOOK_RECORD_SIZE];
    if (!SeekFile(Opened.file, uint64_t(index) * BOOK_RECORD_SIZE) ||
        std::fread(bytes, sizeof bytes, 1, Opened.file) != 1)
        return false;
    record.keys.a = int32_t(LoadLittle32(bytes));
    record.keys.b = int32_t(LoadLittle32(bytes + 4));
    record.nodeOffset = LoadLittle32(bytes + 8);
    return true;
}

// Searches the index for the position on the board. Records that a cut-off file has lost count as
// greater, so that those before them are found.
static bool FindRecord(IndexRecord& found) {
    if (Opened.file == nullptr)
        return false;
    const BookKeys wanted = KeysOfPosition();
    int64_t low = BOOK_HEADER_RECORDS;
    int64_t high = Opened.recordBound;
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
    return Opened.version0 ? BOOK_MOVE_SIZE_VERSION_0 : BOOK_MOVE_SIZE;
}

static BookMove ReadMove(const unsigned char* entry) {
    if (Opened.version0)
        return {entry[0], entry[1], entry[2], entry[2] == BOOK_NEVER_PLAYED};
    const uint16_t statistics = LoadLittle16(entry + 2);
    return {entry[0], entry[1], statistics, statistics == BOOK_KILLED};
}

bool FindPosition(BookNode& node) {
    IndexRecord record;
    if (!FindRecord(record) || !SeekFile(Opened.file, record.nodeOffset))
        return false;
    unsigned char bytes[1 + BOOK_MAX_MOVES * BOOK_MOVE_SIZE];
    const size_t length = std::fread(bytes, 1, sizeof bytes, Opened.file);
    if (length == 0)
        return false;
    node.offset = uint64_t{record.nodeOffset} + 1;
    node.count = int(std::min(size_t(bytes[0]), (length - 1) / MoveSize()));
    const unsigned char* entry = bytes + 1;
    for (int i = 0; i < node.count; i++, entry += MoveSize())
        node.moves[i] = ReadMove(entry);
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
    if (!SeekFile(Opened.file, node.offset + uint64_t(first) * BOOK_MOVE_SIZE) ||
        std::fwrite(bytes, size_t(entry - bytes), 1, Opened.file) != 1)
        NoteUnwritten(OPENING_BOOK);
}

bool LockBook() {
    return LockAgainstOthers(Opened.file);
}

void UnlockBook() {
    UnlockForOthers(Opened.file);
}
