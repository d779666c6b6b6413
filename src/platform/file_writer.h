// Writing a file so that no half of one ever has its name.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <span>
#include <system_error>

// Whether a file can have that name: a regular file has it, or nothing.
bool IsPlaceOfFile(const std::filesystem::path& path);

// Writes a file under another name beside the one it is to have, which it gets when it is complete:
// whatever fails, an older file stays as it was. What is no file, a device say, is not replaced. A
// symbolic link keeps leading to its file, which is replaced.
class FileWriter {
public:
    explicit FileWriter(const std::filesystem::path& name);
    // Without `Finish` nothing is left of the new file.
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    // Appends. After a failure it does nothing.
    void Write(std::span<const uint8_t> bytes);
    // Gives the file its name. The first thing that went wrong, if anything has.
    std::error_code Finish();

private:
    void Close();

    std::filesystem::path path;
    std::filesystem::path unfinished;
    std::FILE* file = nullptr;
    std::error_code error;
};
