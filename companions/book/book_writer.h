// Writes book files.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "book/book_format.h"
#include "book/book_keys.h"

// A move of a book with the position it is played in.
struct BookEntry {
    BookKeys keys;
    uint8_t from;
    uint8_t to;
    uint16_t statistics;
};

// Writes a version-1 book with these moves, which are ascending by position; tells how many
// positions and moves it has. The file is written under another name first and takes the place of
// an older one when it is complete: whatever fails, the older one stays as it was. False, with a
// message, when it cannot be written.
bool WriteBook(const std::string& path, std::span<const BookEntry> entries);
