// The moves of all positions met so far, with their results: one entry for a position and a move,
// however many games they come from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "book/book_keys.h"

constexpr int16_t NO_SCORE = INT16_MIN;

// Counts stop at their largest value.
struct MoveCount {
    BookKeys keys; // of the position
    uint8_t from;
    uint8_t to;
    int16_t score; // of a search after the move, in centipawns for its player; or NO_SCORE
    uint32_t won;  // half-points scored
    uint32_t lost; // and conceded
    uint32_t games : 31;
    uint32_t killed : 1;

    void AddPoints(uint32_t scored, uint32_t conceded);
    void AddGame();
};
// A table of a hundred million moves has to fit into memory.
static_assert(sizeof(MoveCount) == 24);

class MoveTable {
public:
    // The entry of the move, made when there is none; `isNew` tells which. It moves when another
    // one is made.
    MoveCount& Entry(BookKeys position, int from, int to, bool& isNew);
    size_t Size() const {
        return count;
    }
    // All entries, ascending by position, in no order within one. The table is empty afterwards.
    std::vector<MoveCount> TakeSorted();

private:
    MoveCount& Slot(BookKeys position, int from, int to);
    void Grow();

    std::vector<MoveCount> slots; // a power of two of them
    size_t count = 0;
};
