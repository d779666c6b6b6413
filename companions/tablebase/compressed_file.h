// Whole tables in the layout that tablebase/compressed_table.h describes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

// The bytes of the compressed file.
std::vector<uint8_t> CompressTable(std::span<const uint8_t> plain, int threads);

// The plain table in a compressed file; false when any of it is damaged or it is none.
bool ReadCompressedTable(const std::filesystem::path& path, std::vector<uint8_t>& plain);
