#include "table_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace fs = std::filesystem;

std::string TableFileName(int classNumber, Colour side) {
    return TablebaseClasses[size_t(classNumber)].name +
           std::string(side == WHITE ? ".nbw" : ".nbb");
}

bool ReadTableFile(const fs::path& path, std::vector<uint8_t>& bytes) {
    bytes.clear();
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return false;
    const auto size = fs::file_size(path, error);
    if (error)
        return false;
    std::FILE* const file = std::fopen(path.string().c_str(), "rb");
    if (file == nullptr)
        return false;
    bytes.resize(size);
    // Neither reading nor writing nothing may be given a null pointer.
    const bool read =
        bytes.empty() || std::fread(bytes.data(), 1, bytes.size(), file) == bytes.size();
    std::fclose(file);
    return read;
}

std::string WriteTableFile(const fs::path& path, std::span<const uint8_t> bytes) {
    const fs::path unfinished = path.string() + ".tmp";
    std::FILE* const file = std::fopen(unfinished.string().c_str(), "wb");
    if (file == nullptr)
        return unfinished.string() + ": " + std::strerror(errno);
    errno = 0;
    const bool written =
        bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    int trouble = errno;
    // A full disk may show when the last bytes leave the buffer.
    const bool closed = std::fclose(file) == 0;
    if (!closed && written)
        trouble = errno;
    std::error_code error;
    if (!written || !closed) {
        fs::remove(unfinished, error);
        return unfinished.string() + ": " + std::strerror(trouble);
    }
    fs::rename(unfinished, path, error);
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
