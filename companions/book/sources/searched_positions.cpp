#include "searched_positions.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string_view>

#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "companions/shared/text_lines.h"

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
        Add(std::move(position), Join(KeysOfPosition()));
    }
    return true;
}

void SearchedPositions::Add(SearchedPosition position, uint64_t keys) {
    const auto [place, isNew] = places.try_emplace(keys, positions.size());
    scores[keys] = position.score;
    if (isNew)
        positions.push_back(std::move(position));
    else
        positions[place->second] = std::move(position);
}

// Where the legal moves of the position on the board lead.
static std::vector<uint64_t> SuccessorsHere() {
    std::vector<uint64_t> successors;
    const int start = MoveStackTop;
    const int end = start + GenerateLegalMoves();
    for (int i = start; i < end; i++) {
        MakeMove(MoveStack[i].move, true);
        successors.push_back(Join(KeysOfPosition()));
        UnmakeMove();
    }
    MoveStackTop = start;
    return successors;
}

// One round; false when no score has changed.
bool SearchedPositions::RaiseScores(std::span<const std::vector<uint64_t>> successors) {
    std::unordered_map<uint64_t, int> raised = scores;
    for (size_t i = 0; i < positions.size(); i++) {
        positions[i].SetUp();
        int& score = raised[Join(KeysOfPosition())];
        score = positions[i].score;
        for (const uint64_t next : successors[i]) {
            if (const auto found = scores.find(next); found != scores.end())
                score = std::max(score, -found->second);
        }
    }
    std::swap(scores, raised);
    return scores != raised;
}

void SearchedPositions::BackUpScores() {
    // Lines are not longer; moves to and fro might go on for ever.
    constexpr int mostRounds = 50;
    std::vector<std::vector<uint64_t>> successors;
    for (const SearchedPosition& position : positions) {
        position.SetUp();
        successors.push_back(SuccessorsHere());
    }
    for (int round = 0; round < mostRounds && RaiseScores(successors); round++) {
    }
}

std::optional<int> SearchedPositions::Score(BookKeys position) const {
    const auto found = scores.find(Join(position));
    return found == scores.end() ? std::nullopt : std::optional(found->second);
}
