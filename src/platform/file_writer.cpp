#include "platform/file_writer.h"

#include <cerrno>

namespace fs = std::filesystem;

static std::error_code LastError() {
    return {errno != 0 ? errno : EIO, std::generic_category()};
}

bool IsPlaceOfFile(const fs::path& path) {
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    return !fs::exists(status) || fs::is_regular_file(status);
}

FileWriter::FileWriter(const fs::path& name) : path(name) {
    if (const fs::path target = fs::canonical(name, error); !error)
        path = target;
    error.clear();
    unfinished = path;
    unfinished += ".unfinished";
    if (!IsPlaceOfFile(path) || !IsPlaceOfFile(unfinished)) {
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
    // Whoever may use the old file may use the new one.
    std::error_code ignored;
    if (const fs::file_status old = fs::status(path, ignored); !error && fs::exists(old))
        fs::permissions(unfinished, old.permissions(), ignored);
    if (!error)
        fs::rename(unfinished, path, error);
    if (error)
        fs::remove(unfinished, ignored);
    return error;
}
