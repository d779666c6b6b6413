#include "sources.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include "board/moves/make_move.h"
#include "board/position.h"
#include "companions/shared/text_lines.h"
#include "coordinates.h"
#include "tools/pgn_moves.h"

namespace {

struct PlaceInFile {
    const std::string& path;
    int line;
};

} // namespace

// The word without a move number before it and marks behind it; empty when nothing is left.
static std::string_view BareMove(std::string_view word) {
    if (word == "*" || word == "1-0" || word == "0-1" || word == "1/2-1/2")
        return {};
    const size_t number = word.find_first_not_of("0123456789");
    if (number == std::string_view::npos)
        return {};
    if (word[number] == '.')
        word.remove_prefix(std::min(word.find_first_not_of('.', number), word.size()));
    return word.substr(0, word.find_first_of("+#!?"));
}

static void CountLine(std::string_view text, PlaceInFile place, const SourceRules& rules,
                      MoveCounter& counter) {
    SetStartPosition();
    int plies = 0;
    for (const std::string_view word : Split(text, ' ')) {
        const std::string_view bare = BareMove(word);
        if (bare.empty())
            continue;
        if (plies++ == rules.depth)
            return;
        const SanMove san = PgnParseSan(bare);
        if (san.matches != 1) {
            std::fprintf(stderr, "%s:%d: ply %d: \"%.*s\" is %s\n", place.path.c_str(), place.line,
                         plies, int(bare.size()), bare.data(),
                         san.matches == 0 ? "no legal move" : "ambiguous");
            return;
        }
        if (!FitsBook(san.move))
            return;
        if (rules.CountsSide(SideToMove))
            counter.Entry(san.move).AddGame();
        MakeMove(san.move, true);
    }
}

bool CountLines(const std::string& path, const SourceRules& rules, MoveCounter& counter) {
    LineReader reader;
    if (!reader.Open(path.c_str()))
        return false;
    for (std::string line; reader.Next(line);) {
        const std::string_view moves = Split(line, '\t').back();
        const bool heading = reader.Number() == 1 && moves == "pgn";
        if (!heading && !line.starts_with('#'))
            CountLine(moves, {path, reader.Number()}, rules, counter);
    }
    std::printf("%s: %d lines\n", path.c_str(), reader.Number());
    return true;
}
