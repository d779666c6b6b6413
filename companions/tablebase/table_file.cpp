#include "table_file.h"

#include "platform/file_writer.h"

namespace fs = std::filesystem;

std::string TableFileName(int classNumber, Colour side) {
    return TablebaseClasses[size_t(classNumber)].name +
           std::string(side == WHITE ? ".nbw" : ".nbb");
}

std::string WriteTableFile(const fs::path& path, std::span<const uint8_t> bytes) {
    FileWriter file(path);
    file.Write(bytes);
    const std::error_code error = file.Finish();
    return error ? path.string() + ": " + error.message() : "";
}

void ForEachTableFile(
    const fs::path& directory,
    const std::function<void(const fs::path& path, int classNumber, Colour side)>& visit) {
    for (int number = 1; number <= TABLEBASE_CLASSES; number++) {
        for (const Colour side : {WHITE, BLACK}) {
            for (const char* suffix : {"", COMPRESSED_SUFFIX}) {
                const fs::path path = directory / (TableFileName(number, side) + suffix);
                std::error_code error;
                if (fs::exists(path, error))
                    visit(path, number, side);
            }
        }
    }
}
