// The format of the file of learned positions, byte by byte.
//
// Integers are 32 bits, little-endian. Offset 0: the title without a terminator; 23: 65536 bucket
// heads, each the offset of the bucket's first entry or 0; 262167: the entries, 24 bytes each, in
// the order they were added: depth in 1/60 ply, evaluation in centipawns from the side to move,
// move, key 1, key 2, offset of the bucket's next entry or 0. A position's bucket is the low 16
// bits of its key 1.
#pragma once

#include <cstdint>
#include <set>

constexpr char LEARNING_TITLE[] = "Tarquelin learning file";
constexpr uint32_t LEARNING_HEADS = sizeof LEARNING_TITLE - 1; // offset
constexpr uint32_t LEARNING_BUCKETS = 65536;
constexpr uint32_t LEARNING_ENTRIES = LEARNING_HEADS + 4 * LEARNING_BUCKETS; // offset
static_assert(LEARNING_ENTRIES == 262167);

constexpr uint32_t LEARNING_ENTRY_SIZE = 24;
// Offsets in an entry.
constexpr uint32_t LEARNING_EVALUATION = 4;
constexpr uint32_t LEARNING_MOVE = 8;
constexpr uint32_t LEARNING_KEY1 = 12;
constexpr uint32_t LEARNING_KEY2 = 16;
constexpr uint32_t LEARNING_NEXT = 20;

// Whether an entry at that offset, behind the heads, would share bytes with one of those.
inline bool OverlapsEntry(const std::set<uint32_t>& entries, uint32_t offset) {
    const auto next = entries.upper_bound(offset - LEARNING_ENTRY_SIZE);
    return next != entries.end() && *next < uint64_t{offset} + LEARNING_ENTRY_SIZE;
}
