#include "tablebase/registry.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "platform/directory.h"
#include "platform/drives.h"
#include "platform/random_file.h"
#include "tablebase/classes.h"
#include "tablebase/out_of_memory.h"
#include "tablebase/table_index.h"

namespace {

constexpr const char* Suffixes[2] = {".nbw", ".nbb"}; // by side to move
constexpr const char* CompressedSuffix = ".emd";

using TablesOfClass = std::array<TableFile*, 2>; // by side to move
constinit std::array<TablesOfClass, TABLEBASE_CLASSES + 1> Tables = {};

} // namespace

void ForgetTablebases() {
    for (TablesOfClass& tables : Tables) {
        for (TableFile*& table : tables) {
            if (table != nullptr)
                CloseTable(table);
            table = nullptr;
        }
    }
    ReleaseIndexes();
    FreeDecodeBlock();
}

int32_t TablebaseMemory() {
    uint64_t bytes = IndexMemory() + DecodeBlockBytes();
    for (const TablesOfClass& tables : Tables) {
        for (const TableFile* const table : tables) {
            if (table != nullptr && table->directory.starts != nullptr)
                bytes += DirectoryMemory(table->directory.blocks);
        }
    }
    return bytes > INT32_MAX ? INT32_MAX : int32_t(bytes);
}

// The plain file comes first: reading it takes less time. One that is there but no such table is
// not replaced by a compressed one: what is wrong with it has been told.
static TableFile* OpenTable(const DirectoryFiles& files, int classNumber, Colour side) {
    const std::string name =
        std::string(TablebaseClasses[size_t(classNumber)].name) + Suffixes[side];
    if (const std::string plain = PathOfFile(files, name); !plain.empty()) {
        const int file = OpenRandomFile(plain.c_str());
        if (file != NO_FILE)
            return TakePlainTable(file, plain, classNumber, side);
    }
    const std::string compressed = PathOfFile(files, name + CompressedSuffix);
    return compressed.empty() ? nullptr : OpenCompressedTable(compressed, classNumber, side);
}

// True when the table is registered afterwards.
static bool Register(const DirectoryFiles& files, int classNumber, Colour side) {
    TableFile*& table = Tables[size_t(classNumber)][side];
    if (table != nullptr)
        return true;
    table = OpenTable(files, classNumber, side);
    if (table == nullptr)
        return false;
    if (!PrepareIndex(classNumber, side))
        EndForLackOfMemory(IndexMemory(classNumber));
    return true;
}

// One file serves both sides of a symmetric class; the second is not needed, but may be the only
// one.
static void RegisterDirectory(const std::string& directory) {
    if (HasDriveLetter(directory) && !DriveExists(directory[0]))
        return;
    const DirectoryFiles files = ListDirectory(directory);
    for (int number = 1; number <= TABLEBASE_CLASSES; number++) {
        const bool white = Register(files, number, WHITE);
        if (!white || !TablebaseClasses[size_t(number)].symmetric)
            Register(files, number, BLACK);
    }
}

// Without the blanks round it, as people write lists.
static std::string Trimmed(const std::string& text) {
    const size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? ""
                                      : text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

static int LargestClass() {
    int number = TABLEBASE_CLASSES;
    while (number > 0 && Tables[size_t(number)] == TablesOfClass{})
        number--;
    return number;
}

int RegisterTablebases(const char* pathList) {
    ForgetTablebases();
    const std::string list = pathList;
    size_t begin = 0;
    while (begin < list.size()) {
        const size_t end = std::min(list.find_first_of(",;", begin), list.size());
        const std::string directory = Trimmed(list.substr(begin, end - begin));
        if (!directory.empty())
            RegisterDirectory(directory);
        begin = end + 1;
    }
    std::fflush(stdout);
    return TablebaseClasses[size_t(LargestClass())].men;
}

TableFile* RegisteredTable(int classNumber, Colour side) {
    return Tables[size_t(classNumber)][side];
}
