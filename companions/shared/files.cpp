#include "companions/shared/files.h"

#include <cerrno>
#include <cstdio>

namespace fs = std::filesystem;

static std::error_code LastError() {
    return {errno != 0 ? errno : EIO, std::generic_category()};
}

std::error_code ReadWholeFile(const fs::path& path, std::vector<uint8_t>& bytes) {
    constexpr size_t piece = 1 << 20;
    bytes.clear();
    std::FILE* const file = std::fopen(path.string().c_str(), "rb");
    if (file == nullptr)
        return LastError();
    // A file that is no file, a pipe say, does not tell its size, and gets what it turns out to
    // need.
    std::error_code error;
    const auto size = fs::file_size(path, error);
    bytes.reserve(error ? 0 : size + piece);
    error.clear();
    errno = 0;
    size_t got = 0;
    do {
        const size_t before = bytes.size();
        bytes.resize(before + piece);
        got = std::fread(bytes.data() + before, 1, piece, file);
        bytes.resize(before + got);
    } while (got == piece);
    if (std::ferror(file) != 0)
        error = LastError();
    std::fclose(file);
    return error;
}
