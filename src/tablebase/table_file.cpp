#include "tablebase/table_file.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "platform/random_file.h"
#include "tablebase/block_decoder.h"
#include "tablebase/classes.h"
#include "tablebase/out_of_memory.h"
#include "tablebase/table_index.h"

namespace {

// What it takes to decode: the block as it is in the file, and the tables of its code.
struct DecodeBlockMemory {
    BlockDecoder decoder;
    uint8_t packed[MAX_PACKED_BLOCK];
};

constinit DecodeBlockMemory* DecodeMemory = nullptr;
constinit uint32_t LastSerial = 0;

constexpr int OUT_OF_MEMORY_CODE = 1;

constexpr int LEAST_LOSS_BYTE = -126;
constexpr int LEAST_WIN_WORD = 32000; // no mate takes this many moves

} // namespace

size_t DecodeBlockBytes() {
    return DecodeMemory == nullptr ? 0 : sizeof *DecodeMemory;
}

void FreeDecodeBlock() {
    delete DecodeMemory;
    DecodeMemory = nullptr;
}

static void AllocateDecodeBlock() {
    if (DecodeMemory != nullptr)
        return;
    DecodeMemory = new (std::nothrow) DecodeBlockMemory;
    if (DecodeMemory != nullptr)
        return;
    std::printf("*** Cannot allocate decode block: error code %d\n", OUT_OF_MEMORY_CODE);
    std::fflush(stdout);
    std::exit(1);
}

static bool HasMenBesideKing(const TablebaseClass& c, Colour side) {
    return std::ranges::any_of(c.count[side], [](uint8_t count) { return count != 0; });
}

// Bytes of an entry in a table of that size; 0 when it is no table of the class and side. What
// tables leave out at their end may be any number of entries, and the published sizes do not tell
// the width for every class: then a table that is too long for one byte has two.
static uint8_t EntryBytes(uint64_t bytes, int classNumber, Colour side) {
    const uint64_t entries = TableEntries(classNumber, side);
    const EntryWidth width = TablebaseClasses[size_t(classNumber)].width;
    if (bytes <= entries && width != WIDTH_TWO_BYTES)
        return 1;
    return bytes <= 2 * entries && width != WIDTH_ONE_BYTE ? 2 : 0;
}

// The table in an open file, which it takes over; null with the file closed when its size is
// wrong.
static TableFile* MakeTable(const std::string& path, int file, uint64_t bytes, int classNumber,
                            Colour side) {
    const uint8_t entryBytes = EntryBytes(bytes, classNumber, side);
    if (entryBytes == 0) {
        CloseRandomFile(file);
        std::printf("*** Unable to register %s\n", path.c_str());
        return nullptr;
    }
    auto* const table = new (std::nothrow) TableFile;
    if (table == nullptr)
        EndForLackOfMemory(sizeof(TableFile));
    const TablebaseClass& c = TablebaseClasses[size_t(classNumber)];
    *table = {file,
              ++LastSerial,
              bytes,
              entryBytes,
              HasMenBesideKing(c, side),
              HasMenBesideKing(c, ChangeSide(side)),
              false,
              {}};
    return table;
}

TableFile* TakePlainTable(int file, const std::string& path, int classNumber, Colour side) {
    const int64_t bytes = RandomFileSize(file);
    if (bytes < 0) {
        std::printf("*** Seek in %s failed\n", path.c_str());
        CloseRandomFile(file);
        return nullptr;
    }
    return MakeTable(path, file, uint64_t(bytes), classNumber, side);
}

static void TellFault(TableFault fault, const char* path, int blockSize) {
    if (fault == FAULT_BLOCK_SIZE)
        std::printf("*** %s: Unsupported block size %d\n", path, blockSize);
    else if (fault == FAULT_SEEK)
        std::printf("*** Seek in %s failed\n", path);
    else if (fault == FAULT_READ)
        std::printf("*** Unable to read %s -read error\n", path);
    else if (fault == FAULT_MEMORY)
        std::printf("*** Unable to read %s -out of memory\n", path);
    else if (fault == FAULT_BROKEN)
        std::printf("*** Unable to read %s -file broken\n", path);
    else
        std::printf("*** Unable to register %s\n", path);
}

// A file that is not there is no news.
static void TellOpenError(const char* path, int error) {
    if (error != ENOENT && error != ENOTDIR)
        std::printf("*** Unable to read %s -error %d\n", path, error);
}

TableFile* OpenCompressedTable(const std::string& path, int classNumber, Colour side) {
    const int file = OpenRandomFile(path.c_str());
    if (file == NO_FILE) {
        TellOpenError(path.c_str(), errno);
        return nullptr;
    }
    BlockDirectory directory = {};
    int blockSize = 0;
    if (const TableFault fault = LoadDirectory(file, directory, blockSize); fault != FAULT_NONE) {
        TellFault(fault, path.c_str(), blockSize);
        CloseRandomFile(file);
        return nullptr;
    }
    TableFile* const table = MakeTable(path, file, directory.plainBytes, classNumber, side);
    if (table == nullptr) {
        FreeDirectory(directory);
        return nullptr;
    }
    AllocateDecodeBlock();
    table->directory = directory;
    return table;
}

void CloseTable(TableFile* table) {
    CloseRandomFile(table->file);
    FreeDirectory(table->directory);
    delete table;
}

static size_t ReadPlainBlock(const TableFile& table, uint64_t block, uint8_t* buffer,
                             size_t wanted) {
    const int64_t read = ReadFileAt(table.file, block * TABLE_BLOCK, buffer, wanted);
    return read < 0 ? 0 : size_t(read);
}

static size_t ReadCompressedBlock(TableFile& table, uint64_t block, uint8_t* buffer,
                                  size_t wanted) {
    uint8_t* const packed = DecodeMemory->packed;
    const size_t bytes = ReadPackedBlock(table.file, table.directory, block, packed);
    if (bytes == 0)
        return 0;
    if (DecodeBlock(DecodeMemory->decoder, packed, bytes, buffer, wanted))
        return wanted;
    table.damaged = true;
    return 0;
}

// Whether every value is one that a position can have. No position is mated in less than no move,
// won by a bare king or lost against one.
static bool BytesArePossible(const TableFile& table, const uint8_t* bytes, size_t count) {
    bool impossible = false;
    const int least = table.sideMayLose ? LEAST_LOSS_BYTE : 0;
    const int most = table.sideMayWin ? BROKEN_BYTE - 1 : 0;
    for (size_t i = 0; i < count; i++) {
        const int value = int8_t(bytes[i]);
        impossible |= (value < least) | ((value > most) & (value != BROKEN_BYTE));
    }
    return !impossible;
}

static bool WordsArePossible(const TableFile& table, const uint8_t* bytes, size_t count) {
    for (size_t i = 0; i + 1 < count; i += 2) {
        const auto value = int16_t(LoadLittle16(bytes + i));
        const bool win = value > LEAST_WIN_WORD && table.sideMayWin;
        const bool loss = value < -LEAST_WIN_WORD && value > -BROKEN_WORD && table.sideMayLose;
        if (value != 0 && value != BROKEN_WORD && !win && !loss)
            return false;
    }
    return true;
}

size_t ReadTableBlock(TableFile& table, uint64_t block, uint8_t* buffer) {
    if (table.damaged || block * TABLE_BLOCK >= table.bytes)
        return 0;
    const auto wanted = size_t(std::min<uint64_t>(TABLE_BLOCK, table.bytes - block * TABLE_BLOCK));
    const size_t read = table.directory.starts != nullptr
                            ? ReadCompressedBlock(table, block, buffer, wanted)
                            : ReadPlainBlock(table, block, buffer, wanted);
    const bool possible = table.entryBytes == 1 ? BytesArePossible(table, buffer, read)
                                                : WordsArePossible(table, buffer, read);
    if (possible)
        return read;
    table.damaged = true;
    return 0;
}
