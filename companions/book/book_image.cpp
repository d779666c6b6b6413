#include "book_image.h"

#include <cstdio>
#include <cstring>

#include "companions/shared/files.h"
#include "platform/bytes.h"

static bool Refuse(const std::string& path, const std::string& reason) {
    std::fprintf(stderr, "%s: %s\n", path.c_str(), reason.c_str());
    return false;
}

bool BookImage::Read(const std::string& path) {
    if (const std::error_code error = ReadWholeFile(path, bytes))
        return Refuse(path, error.message());
    if (bytes.size() < BOOK_HEADER_SIZE)
        return Refuse(path, "too short for a book");
    if (std::memcmp(bytes.data(), BOOK_MAGIC, BOOK_VERSION_OFFSET) != 0)
        return Refuse(path, "does not begin like a book");
    const uint32_t version = LoadLittle32(bytes.data() + BOOK_VERSION_OFFSET);
    if (version > 1)
        return Refuse(path, "the version of the book is neither 0 nor 1");
    version0 = version == 0;
    positions = LoadLittle32(bytes.data() + BOOK_COUNT_OFFSET);
    if (IndexEnd() > bytes.size())
        return Refuse(path, "too short for its index");
    return true;
}

IndexRecord BookImage::Record(uint32_t number) const {
    const unsigned char* const record =
        bytes.data() + BOOK_HEADER_SIZE + size_t{number} * BOOK_RECORD_SIZE;
    return {{int32_t(LoadLittle32(record)), int32_t(LoadLittle32(record + 4))},
            LoadLittle32(record + 8)};
}

std::optional<uint32_t> BookImage::Find(BookKeys keys) const {
    uint32_t low = 0;
    uint32_t high = positions;
    while (low < high) {
        const uint32_t middle = low + (high - low) / 2;
        const BookKeys found = Record(middle).keys;
        if (found == keys)
            return middle;
        if (found < keys)
            low = middle + 1;
        else
            high = middle;
    }
    return std::nullopt;
}

bool BookImage::ReadNode(uint32_t offset, std::vector<ImageMove>& moves) const {
    moves.clear();
    if (offset < IndexEnd() || offset >= bytes.size())
        return false;
    const unsigned char* move = bytes.data() + offset + 1;
    const size_t count = bytes[offset];
    if (offset + NodeSize(count) > bytes.size())
        return false;
    for (size_t i = 0; i < count; i++, move += MoveSize()) {
        const uint16_t statistics =
            version0 ? (move[2] == BOOK_NEVER_PLAYED ? BOOK_KILLED : 0) : LoadLittle16(move + 2);
        moves.push_back({move[0], move[1], statistics});
    }
    return true;
}

size_t BookImage::IndexEnd() const {
    return BOOK_HEADER_SIZE + size_t{positions} * BOOK_RECORD_SIZE;
}

size_t BookImage::MoveSize() const {
    return version0 ? BOOK_MOVE_SIZE_VERSION_0 : BOOK_MOVE_SIZE;
}

size_t BookImage::NodeSize(size_t moveCount) const {
    return 1 + moveCount * MoveSize();
}
