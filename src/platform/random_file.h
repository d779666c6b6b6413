// Files that are read at any place, by descriptors that take no buffer of their own.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr int NO_FILE = -1;

// Opens a regular file for reading, by its exact path. NO_FILE when that fails, for which `errno`
// tells why: ENOENT also where something else has the name, a directory say. Whoever opens closes.
// What has been opened stays readable, where the system allows it, when its name is removed.
int OpenRandomFile(const char* path);
void CloseRandomFile(int file);

// Its length in bytes, -1 when that cannot be told.
int64_t RandomFileSize(int file);

// Reads up to `bytes` bytes from `offset` on in one call to the system. Returns how many there
// were, fewer at the end of the file; -1 for a failure, which `errno` then tells.
int64_t ReadFileAt(int file, uint64_t offset, void* buffer, size_t bytes);
