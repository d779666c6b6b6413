// The opening lines from which games set out.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <vector>

#include "board/types.h"

class OpeningLines {
public:
    // Reads all lists of lines in the directory: the files *.tsv whose first line heads its last
    // column "pgn". False, with a message, when there are none.
    bool Read(const std::filesystem::path& directory);
    size_t Count() const {
        return lines.size();
    }
    const std::vector<Move>& operator[](size_t i) const {
        return lines[i];
    }

private:
    bool ReadFile(const std::filesystem::path& path);
    void AddLine(std::string_view text);

    std::vector<std::vector<Move>> lines;
};
