// The opening book: the one file that is open, and how a position is found in it.
//
// Nothing of it is kept in memory, so that a book may be far larger: a position costs a seek and a
// read of one record for each halving of the index, and one read of its node.
#pragma once

#include <cstdint>

#include "book/book_format.h"

struct BookMove {
    uint8_t from;
    uint8_t to;
    uint16_t statistics; // the weight in a version-0 book
    bool killed;         // never played
};

// The moves that the book has in one position, as many as the file really holds.
struct BookNode {
    uint64_t offset; // of the first move in the file
    int count;
    BookMove moves[BOOK_MAX_MOVES];
};

// Opens the book and closes the one before; prints how many nodes it has, or why it cannot be
// used; of one that is not there only unless `silent`. A version-0 book switches book learning and
// book weights off for good.
void OpenBook(const char* path, bool silent = false);

// Whether there is a book that can be used.
bool BookIsOpen();
// Whether the moves of the open book carry statistics, those of version 0 do not.
bool BookHasStatistics();

// Reads the moves of the position on the board. False when it is not in the book, or where the
// book is damaged.
bool FindPosition(BookNode& node);

// Writes the statistics of the node's moves `first` to `last` back into a version-1 book, in one
// piece. Where the book cannot be written it stays as it is.
void WriteStatistics(const BookNode& node, int first, int last);

// Keeps other engines from updating the open book, from the reading of statistics to their writing.
// False when another one has kept it for too long.
bool LockBook();
void UnlockBook();
