// One table in one file, plain or compressed, read block by block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "board/types.h"
#include "tablebase/compressed_table.h"

// What an open table knows. Entries are one byte, or two with the lower first.
struct TableFile {
    int file;
    uint32_t serial;          // never given again, so that it can name the table's blocks
    uint64_t bytes;           // of the plain table
    uint8_t entryBytes;       // 1 or 2
    bool sideMayWin;          // the side to move has a man beside its king
    bool sideMayLose;         // the other side has one
    bool damaged;             // holds what no table holds: not read any more
    BlockDirectory directory; // empty for a plain table
};

// Values of entries. As bytes: 126 is a mate with the next move and less a later one; -126 is
// mated, more is mated later. Words count alike from 32766 and -32766. 0 is a draw.
constexpr int BROKEN_BYTE = 127; // illegal or not a position
constexpr int BROKEN_WORD = 32767;

// The table of a class and side in a plain file that is open, and taken over. Prints why and gives
// null when it is no such table.
TableFile* TakePlainTable(int file, const std::string& path, int classNumber, Colour side);
// The same for a compressed file, which is opened first: null when that fails.
TableFile* OpenCompressedTable(const std::string& path, int classNumber, Colour side);
void CloseTable(TableFile* table);

// Memory that decoding takes beside the directories, in bytes: none before the first compressed
// table.
size_t DecodeBlockBytes();
// Gives it back, when no compressed table is open any more.
void FreeDecodeBlock();

// Reads a block of the plain table, TABLE_BLOCK bytes or as many as are left at its end, with one
// read from the file. Returns how many there are; 0 when it cannot be read or holds values that
// cannot be, after which the table counts as damaged.
size_t ReadTableBlock(TableFile& table, uint64_t block, uint8_t* buffer);
