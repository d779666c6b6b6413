#include "companions/shared/files.h"

#include <algorithm>
#include <cerrno>

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

FileWriter::FileWriter(const fs::path& name) : path(name) {
    // What a symbolic link leads to is replaced, not the link.
    if (const fs::path target = fs::canonical(name, error); !error)
        path = target;
    error.clear();
    unfinished = path;
    unfinished += ".unfinished";
    std::error_code ignored;
    if (fs::exists(path, ignored) && !fs::is_regular_file(path, ignored)) {
        error = std::make_error_code(std::errc::not_supported);
        return;
    }
    file = std::fopen(unfinished.string().c_str(), "wb");
    if (file == nullptr)
        error = LastError();
}

FileWriter::~FileWriter() {
    if (file == nullptr)
        return;
    std::fclose(file);
    std::error_code ignored;
    fs::remove(unfinished, ignored);
}

void FileWriter::Write(std::span<const uint8_t> bytes) {
    errno = 0;
    // Not even nothing may be written from a null pointer.
    if (!error && !bytes.empty() && std::fwrite(bytes.data(), bytes.size(), 1, file) != 1)
        error = LastError();
}

// A full disk may show when the last bytes leave the buffer.
void FileWriter::Close() {
    errno = 0;
    if (std::fclose(file) != 0 && !error)
        error = LastError();
    file = nullptr;
}

std::error_code FileWriter::Finish() {
    if (file == nullptr)
        return error;
    Close();
    // Whoever may read the old file may read the new one.
    std::error_code ignored;
    if (const fs::file_status old = fs::status(path, ignored); !error && fs::exists(old))
        fs::permissions(unfinished, old.permissions(), ignored);
    if (!error)
        fs::rename(unfinished, path, error);
    if (error)
        fs::remove(unfinished, ignored);
    return error;
}
