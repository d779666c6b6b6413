#include "tablebase/compressed_table.h"

#include <cstring>
#include <memory>
#include <new>

#include "platform/random_file.h"

size_t DirectoryMemory(uint64_t blocks) {
    return size_t(blocks + 1) * sizeof(uint64_t);
}

// FAULT_NONE with as many bytes as were asked for; a file that ends earlier is broken.
static TableFault ReadWhole(int file, uint64_t offset, uint8_t* buffer, size_t bytes) {
    const int64_t read = ReadFileAt(file, offset, buffer, bytes);
    if (read < 0)
        return FAULT_READ;
    return size_t(read) == bytes ? FAULT_NONE : FAULT_BROKEN;
}

static TableFault CheckHeader(const uint8_t (&header)[TABLE_HEADER], int& blockSize) {
    if (std::memcmp(header, TableMagic, MAGIC_BYTES) != 0)
        return FAULT_FOREIGN;
    blockSize = int(LoadLittle32(header + BLOCK_SIZE_OFFSET));
    if (blockSize != int{TABLE_BLOCK})
        return FAULT_BLOCK_SIZE;
    const uint64_t blocks = LoadLittle32(header + BLOCK_COUNT_OFFSET);
    const uint64_t plainBytes = LoadLittle64(header + PLAIN_BYTES_OFFSET);
    const bool fits =
        plainBytes <= blocks * TABLE_BLOCK && blocks * TABLE_BLOCK < plainBytes + TABLE_BLOCK;
    return fits && TableChecksum(header, HEADER_SUM_OFFSET) ==
                       LoadLittle32(header + HEADER_SUM_OFFSET)
               ? FAULT_NONE
               : FAULT_BROKEN;
}

// Where the blocks start, from the sizes that the file tells.
static TableFault SumSizes(const uint8_t* sizes, BlockDirectory& directory) {
    for (uint64_t block = 0; block < directory.blocks; block++) {
        const uint32_t size = LoadLittle16(sizes + block * DIRECTORY_ENTRY);
        if (size <= BLOCK_HEAD || size > MAX_PACKED_BLOCK)
            return FAULT_BROKEN;
        directory.starts[block + 1] = directory.starts[block] + size;
    }
    return FAULT_NONE;
}

static TableFault ReadDirectory(int file, BlockDirectory& directory, uint32_t checksum) {
    const size_t bytes = size_t(directory.blocks) * DIRECTORY_ENTRY;
    const std::unique_ptr<uint8_t[]> sizes(new (std::nothrow) uint8_t[bytes]);
    directory.starts = new (std::nothrow) uint64_t[size_t(directory.blocks) + 1];
    if (sizes == nullptr || directory.starts == nullptr)
        return FAULT_MEMORY;
    directory.starts[0] = TABLE_HEADER + bytes;
    const TableFault fault = ReadWhole(file, TABLE_HEADER, sizes.get(), bytes);
    if (fault != FAULT_NONE)
        return fault;
    return TableChecksum(sizes.get(), bytes) == checksum ? SumSizes(sizes.get(), directory)
                                                         : FAULT_BROKEN;
}

TableFault LoadDirectory(int file, BlockDirectory& directory, int& blockSize) {
    uint8_t header[TABLE_HEADER] = {};
    const int64_t fileBytes = RandomFileSize(file);
    if (fileBytes < 0)
        return FAULT_SEEK;
    if (ReadFileAt(file, 0, header, sizeof header) < 0)
        return FAULT_READ;
    TableFault fault = CheckHeader(header, blockSize);
    if (fault != FAULT_NONE)
        return fault;
    const uint64_t blocks = LoadLittle32(header + BLOCK_COUNT_OFFSET);
    // A file that cannot hold its directory does not get memory for it either.
    if (TABLE_HEADER + blocks * DIRECTORY_ENTRY > uint64_t(fileBytes))
        return FAULT_BROKEN;
    directory = {LoadLittle64(header + PLAIN_BYTES_OFFSET), blocks, nullptr};
    fault = ReadDirectory(file, directory, LoadLittle32(header + DIRECTORY_SUM_OFFSET));
    if (fault == FAULT_NONE && directory.starts[blocks] != uint64_t(fileBytes))
        fault = FAULT_BROKEN;
    if (fault != FAULT_NONE)
        FreeDirectory(directory);
    return fault;
}

void FreeDirectory(BlockDirectory& directory) {
    delete[] directory.starts;
    directory.starts = nullptr;
}

size_t ReadPackedBlock(int file, const BlockDirectory& directory, uint64_t block, uint8_t* packed) {
    if (block >= directory.blocks)
        return 0;
    const uint64_t start = directory.starts[block];
    const auto bytes = size_t(directory.starts[block + 1] - start);
    return ReadFileAt(file, start, packed, bytes) == int64_t(bytes) ? bytes : 0;
}
