// Whole files, read at once.
#pragma once

#include <cstdint>
#include <filesystem>
#include <system_error>
#include <vector>

// All bytes of a file, or what went wrong.
std::error_code ReadWholeFile(const std::filesystem::path& path, std::vector<uint8_t>& bytes);
