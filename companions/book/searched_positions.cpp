#include "searched_positions.h"

#include <charconv>
#include <cstdio>
#include <string_view>

#include "board/fen.h"
#include "text_lines.h"

static uint64_t Join(BookKeys keys) {
    return uint64_t{uint32_t(keys.a)} << 32 | uint32_t(keys.b);
}

static bool ReadColumns(std::string_view line, SearchedPosition& position) {
    const std::vector<std::string_view> columns = Split(line, '\t');
    if (columns.size() != 3 || !(columns[0].ends_with(" w") || columns[0].ends_with(" b")))
        return false;
    position.men = columns[0];
    position.best = columns[2];
    const char* const end = columns[1].data() + columns[1].size();
    const auto [stopped, error] = std::from_chars(columns[1].data(), end, position.score);
    return error == std::errc() && stopped == end && position.score >= -HIGHEST_SCORE &&
           position.score <= HIGHEST_SCORE;
}

void SearchedPosition::SetUp() const {
    LoadFen((men + " KQkq -").c_str());
}

bool SearchedPositions::Read(const char* path) {
    LineReader reader;
    if (!reader.Open(path))
        return false;
    for (std::string line; reader.Next(line);) {
        SearchedPosition position;
        if (line.empty() || line[0] == '#')
            continue;
        if (!ReadColumns(line, position)) {
            std::fprintf(stderr, "%s:%d: this is no searched position\n", path, reader.Number());
            continue;
        }
        position.SetUp();
        scores[Join(KeysOfPosition())] = position.score;
        positions.push_back(std::move(position));
    }
    return true;
}

std::optional<int> SearchedPositions::Score(BookKeys position) const {
    const auto found = scores.find(Join(position));
    return found == scores.end() ? std::nullopt : std::optional(found->second);
}
