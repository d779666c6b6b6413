#include "companions/shared/opening_lines.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <system_error>

#include "board/moves/make_move.h"
#include "board/position.h"
#include "companions/shared/text_lines.h"
#include "tools/pgn_moves.h"

namespace fs = std::filesystem;

// What cannot be understood ends the line; the moves before it are as good as any.
void OpeningLines::AddLine(std::string_view text) {
    SetStartPosition();
    std::vector<Move> moves;
    for (const std::string_view word : Split(text, ' ')) {
        if (word.ends_with('.'))
            continue;
        const SanMove san = PgnParseSan(word.substr(0, word.find_first_of("+#!?")));
        if (san.matches != 1)
            break;
        moves.push_back(san.move);
        MakeMove(san.move, true);
    }
    lines.push_back(std::move(moves));
}

bool OpeningLines::ReadFile(const fs::path& path) {
    LineReader reader;
    if (!reader.Open(path.string().c_str()))
        return false;
    std::string line;
    if (!reader.Next(line) || Split(line, '\t').back() != "pgn")
        return true;
    while (reader.Next(line))
        AddLine(Split(line, '\t').back());
    return true;
}

bool OpeningLines::Read(const fs::path& directory) {
    std::error_code error;
    std::vector<fs::path> paths;
    for (fs::directory_iterator i(directory, error), end; !error && i != end; i.increment(error)) {
        if (i->path().extension() == ".tsv")
            paths.push_back(i->path());
    }
    if (error) {
        std::fprintf(stderr, "%s: %s\n", directory.string().c_str(), error.message().c_str());
        return false;
    }
    // Directories have no order of their own, but a seed must mean the same line everywhere.
    std::ranges::sort(paths);
    if (!std::ranges::all_of(paths, [this](const fs::path& path) { return ReadFile(path); }))
        return false;
    if (lines.empty())
        std::fprintf(stderr, "%s: there are no opening lines\n", directory.string().c_str());
    return !lines.empty();
}
