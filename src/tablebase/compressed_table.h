// Where the blocks of a compressed table stand in its file.
//
// The layout is our own. Numbers are little-endian.
//
//      0   8  "TqnTable"
//      8   4  bytes of a plain block: 8192
//     12   4  number of blocks, n
//     16   8  bytes of the plain table; only its last block may be short
//     24   4  checksum of the directory
//     28   4  checksum of the 28 bytes before
//     32  2n  directory: for every block its bytes in this file
//             the blocks, one after the other, each as tablebase/block_code.h tells
#pragma once

#include <cstddef>
#include <cstdint>

#include "tablebase/block_code.h"

constexpr size_t TABLE_HEADER = 32;
constexpr size_t DIRECTORY_ENTRY = 2;
constexpr size_t BLOCK_SIZE_OFFSET = 8;
constexpr size_t BLOCK_COUNT_OFFSET = 12;
constexpr size_t PLAIN_BYTES_OFFSET = 16;
constexpr size_t DIRECTORY_SUM_OFFSET = 24;
constexpr size_t HEADER_SUM_OFFSET = 28;
constexpr char TableMagic[] = "TqnTable";
constexpr size_t MAGIC_BYTES = sizeof TableMagic - 1;

struct BlockDirectory {
    uint64_t plainBytes;
    uint64_t blocks;
    uint64_t* starts; // of every block in the file, and the end of the last
};

// What may be wrong with a file.
enum TableFault {
    FAULT_NONE,
    FAULT_SEEK,       // its length cannot be told
    FAULT_READ,       // the system does not give its bytes
    FAULT_FOREIGN,    // not a compressed table of this layout
    FAULT_BLOCK_SIZE, // its blocks have another size, `blockSize`
    FAULT_BROKEN,     // what it holds contradicts itself
    FAULT_MEMORY      // there is none for `directory`
};

// Reads header and directory of an open file. With FAULT_NONE `directory` has been filled, and is
// to be freed.
TableFault LoadDirectory(int file, BlockDirectory& directory, int& blockSize);
void FreeDirectory(BlockDirectory& directory);
size_t DirectoryMemory(uint64_t blocks);

// Reads a block as it stands in the file, MAX_PACKED_BLOCK bytes at most. 0 when that fails.
size_t ReadPackedBlock(int file, const BlockDirectory& directory, uint64_t block, uint8_t* packed);
