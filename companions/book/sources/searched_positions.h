// Positions that a strong engine has searched, and what it thinks of them.
//
// The file has a position a line, in three columns separated by tabs: the men and the side to move
// as the first two fields of a FEN, the score in centipawns for the side to move (plus or minus
// 10000 - n: mate in n), and the best move in coordinates. A later line for the same position takes
// the place of an earlier one: it was searched again, deeper. A line that begins with "#" is a
// comment.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "board/types.h"
#include "book/book_keys.h"

constexpr int HIGHEST_SCORE = 10000; // centipawns

struct SearchedPosition {
    std::string men;  // and the side to move
    std::string best; // move in coordinates
    int score;

    // Sets the position up with all castling rights that its men allow.
    void SetUp() const;
};

class SearchedPositions {
public:
    // Adds a file; false, with a message, when it cannot be opened. Lines that cannot be understood
    // are named and passed over.
    bool Read(const char* path);
    // Raises the score of every position to what the best move to another of them promises: a
    // search from further down the line knows more.
    void BackUpScores();
    std::span<const SearchedPosition> All() const {
        return positions;
    }
    // For the side to move, in centipawns; nothing when the position has not been searched.
    std::optional<int> Score(BookKeys position) const;

private:
    void Add(SearchedPosition position, uint64_t keys);
    bool RaiseScores(std::span<const std::vector<uint64_t>> successors);

    std::vector<SearchedPosition> positions;
    // By both keys:
    std::unordered_map<uint64_t, size_t> places; // among the positions
    std::unordered_map<uint64_t, int> scores;
};
