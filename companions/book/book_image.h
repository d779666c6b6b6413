// A book file in memory, for looking through it as a whole.
//
// The file may be damaged anywhere: what lies outside it is not found, and nothing else is relied
// upon.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "book/book_format.h"
#include "book/book_keys.h"

struct ImageMove {
    uint8_t from; // what the file has, which may be no square
    uint8_t to;
    uint16_t statistics; // a version-0 book's as 0, or BOOK_KILLED

    uint32_t Won() const {
        return statistics & 255;
    }
    uint32_t Lost() const {
        return statistics >> 8;
    }
};

struct IndexRecord {
    BookKeys keys;
    uint32_t nodeOffset;
};

class BookImage {
public:
    // False, with a message, when the file cannot be read, has not the head of a book that the
    // engine plays from, or is too short for its index.
    bool Read(const std::string& path);
    uint32_t Positions() const {
        return positions;
    }
    // Of a record by its number, from 0.
    IndexRecord Record(uint32_t number) const;
    // The number of the position's record, found as the engine finds it.
    std::optional<uint32_t> Find(BookKeys keys) const;
    // The moves of the node; false when it lies outside the file or inside the head and index.
    bool ReadNode(uint32_t offset, std::vector<ImageMove>& moves) const;
    // Bytes that a node with so many moves takes.
    size_t NodeSize(size_t moveCount) const;
    size_t FileSize() const {
        return bytes.size();
    }
    size_t IndexEnd() const;

private:
    size_t MoveSize() const;

    std::vector<uint8_t> bytes;
    uint32_t positions = 0;
    bool version0 = false;
};
