// The files of a directory of plain tables: their names, and putting new ones in.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "tablebase/classes.h"

// "kqk.nbw" with the first-named side (WHITE) to move, "kqk.nbb" with the other.
std::string TableFileName(int classNumber, Colour side);

// Compressed tables have this behind their name.
constexpr const char* COMPRESSED_SUFFIX = ".emd";

// Writes a table. What went wrong, or an empty text.
std::string WriteTableFile(const std::filesystem::path& path, std::span<const uint8_t> bytes);

// Calls `visit` for every table in the directory, plain or compressed, in the order of the classes.
void ForEachTableFile(const std::filesystem::path& directory,
                      const std::function<void(const std::filesystem::path& path, int classNumber,
                                               Colour side)>& visit);
