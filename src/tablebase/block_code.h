// The code of one compressed block of a table.
//
// A block is coded on its own, so that a probe reads and decodes no other. Its bytes:
//
//     0   4  checksum of the plain bytes
//     4   1  method
//     5      STORED: the plain bytes. CODED: a string of bits, in every byte the low bits first.
//
// The bits begin with the lengths of the code words of two alphabets, one after the other. Four
// bits are a length of 1 to 12; 0 stands for symbols that do not occur: a run of them, whose
// length follows as a number. A number n of at least 1 is written as k zeros, a one and the k
// lower bits of n, where 2^k is the highest power of two in n. Runs may go on from the first
// alphabet into the second. Code words are given out in order of length and then of symbols, each
// the binary number that follows the last one, and are written with the high bit first.
//
// Then come symbols of the first alphabet until the block is complete. 0 to 255 are bytes. Any
// other is a slot for the length of a string that has stood in the block before, and is followed
// by a symbol of the second alphabet: how far before. Its first three symbols are the last three
// different distances, latest first (1, 2 and 3 when the block begins), the others are slots. A
// slot stands for a range of values and is followed by the bits that say which one of them. The
// string may run into the bytes that it is itself making.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "platform/bytes.h"

constexpr size_t TABLE_BLOCK = 8192; // bytes of a plain block

enum BlockMethod : uint8_t { METHOD_STORED, METHOD_CODED };
constexpr size_t BLOCK_HEAD = 5;
constexpr size_t MAX_PACKED_BLOCK = BLOCK_HEAD + TABLE_BLOCK;

constexpr int MAX_CODE_LENGTH = 12;

// Slots for values from 0 on: the first few stand for themselves, then every power of two has as
// many slots as it takes for each to be an eighth of what lies below it, at most.
constexpr int SLOT_BITS = 3;
constexpr uint32_t DIRECT_SLOTS = 2U << SLOT_BITS;

struct Slot {
    uint32_t first; // value
    int bits;       // that follow
};

constexpr uint32_t SlotOf(uint32_t value) {
    if (value < DIRECT_SLOTS)
        return value;
    const auto bits = uint32_t(std::bit_width(value)) - 1 - SLOT_BITS;
    return (bits << SLOT_BITS) + (value >> bits);
}

constexpr uint32_t SLOTS = SlotOf(TABLE_BLOCK - 1) + 1;

constexpr std::array<Slot, SLOTS> MakeSlots() {
    std::array<Slot, SLOTS> slots = {};
    for (uint32_t value = TABLE_BLOCK; value-- > 0;) {
        Slot& slot = slots[SlotOf(value)];
        slot.first = value;
        slot.bits = value < DIRECT_SLOTS ? 0 : int(std::bit_width(value)) - 1 - SLOT_BITS;
    }
    return slots;
}

constexpr std::array<Slot, SLOTS> Slots = MakeSlots();

// The alphabets. Lengths are counted from the shortest, distances from 1.
constexpr uint32_t BYTES = 256;
constexpr uint32_t MIN_MATCH = 2;
constexpr uint32_t MAIN_SYMBOLS = BYTES + SLOTS;
constexpr uint32_t LAST_DISTANCES = 3;
constexpr uint32_t DISTANCE_SYMBOLS = LAST_DISTANCES + SLOTS;
constexpr uint32_t ALL_SYMBOLS = MAIN_SYMBOLS + DISTANCE_SYMBOLS;

// Moves a distance to the front of the last three.
constexpr void RememberDistance(uint32_t (&last)[LAST_DISTANCES], uint32_t distance) {
    uint32_t place = 0;
    while (place + 1 < LAST_DISTANCES && last[place] != distance)
        place++;
    for (; place > 0; place--)
        last[place] = last[place - 1];
    last[0] = distance;
}

// A sum that every changed bit changes, in two steps a word of eight bytes; missing bytes of the
// last word are zeros.
inline uint32_t TableChecksum(const uint8_t* bytes, size_t size) {
    constexpr uint64_t FACTOR = 0x9e3779b97f4a7c15;
    uint64_t sum = FACTOR ^ size;
    for (; size >= 8; size -= 8, bytes += 8)
        sum = std::rotl((sum ^ LoadLittle64(bytes)) * FACTOR, 29);
    uint8_t rest[8] = {};
    for (size_t i = 0; i < size; i++)
        rest[i] = bytes[i];
    sum = (sum ^ LoadLittle64(rest)) * FACTOR;
    return uint32_t(sum >> 32);
}
