// The opening book's file: opening it and what is known of it.
//
// Integers are little-endian. Offset 0: the text "~Tarquelin openings book" without a terminator;
// 24: version, 0 or 1; 28: not read; 32: N, the number of index records; 36: N records of 12 bytes.
#pragma once

#include <cstdint>

extern bool BookOpen;
extern bool BookIsVersion0;     // its moves carry no statistics
extern int32_t BookRecordBound; // N + 3: the header counts as three records

// Opens the book and closes the one before; prints how many nodes it has, or why it cannot be
// used. A version-0 book switches book learning and book weights off for good.
void OpenBook(const char* path);
