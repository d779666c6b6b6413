// The pawn table: one record for each pawn structure, found by `PawnKey`; the latest is at hand.
//
// A record as it lies in memory has 26 bytes, without alignment; the first 8 are its key.
#pragma once

#include <cstddef>
#include <cstdint>

#include "board/types.h"

constexpr int PAWN_ENTRY_BYTES = 26;
constexpr int PAWN_SPARE_ENTRIES = 2;

// What the pawns alone say, in the order of the record. Scores count from Black's view; a mask has
// one bit for each file, a first.
struct PawnEntry {
    uint64_t key;
    int16_t middlegame; // centipawns
    int16_t ending;
    // What is missing from the pawn shield of each side on either wing, 0 for a shield that has not
    // moved.
    uint8_t white_defects_k;
    uint8_t white_defects_q;
    uint8_t black_defects_k;
    uint8_t black_defects_q;
    uint8_t blackPassed;
    uint8_t whitePassed;
    uint8_t whiteFiles; // with any pawn
    uint8_t blackFiles;
    uint8_t whiteCandidates; // with a pawn that its neighbours can help to become a passed one
    uint8_t blackCandidates;
    uint8_t flags;       // PAWNS_...
    uint8_t endingFlags; // bit 0: all of White's pawns stand on one rook's file; bit 1: of Black's
    uint8_t blackWeak;   // isolated or backward, with no pawn before it; only tests ask
    uint8_t whiteWeak;

    uint8_t PassedVector(Colour side) const {
        return side == WHITE ? whitePassed : blackPassed;
    }
    uint8_t Files(Colour side) const {
        return side == WHITE ? whiteFiles : blackFiles;
    }
    uint8_t Candidates(Colour side) const {
        return side == WHITE ? whiteCandidates : blackCandidates;
    }
    uint8_t Weak(Colour side) const {
        return side == WHITE ? whiteWeak : blackWeak;
    }
    bool OnlyOneRookFile(Colour side) const {
        return (endingFlags >> side & 1) != 0;
    }
};
static_assert(offsetof(PawnEntry, middlegame) == 8);
static_assert(offsetof(PawnEntry, whiteWeak) == PAWN_ENTRY_BYTES - 1);

// Bits of the flags. A majority is outside when most pawns stand on the other wing; it is healthy
// when it has a candidate. Both sides may have one. Of the last two at most one is set.
constexpr int PAWNS_WHITE_MAJORITY = 1;
constexpr int PAWNS_WHITE_HEALTHY_MAJORITY = 2;
constexpr int PAWNS_BLACK_MAJORITY = 4;
constexpr int PAWNS_BLACK_HEALTHY_MAJORITY = 8;
constexpr int PAWNS_WHITE_OUTSIDE_PASSER = 16;
constexpr int PAWNS_BLACK_OUTSIDE_PASSER = 32;

// The record of the latest position that was evaluated.
extern PawnEntry Pawns;

// Makes the record of `PawnKey` the one at hand if the table has it. Without a table nothing is
// ever found, not even what is at hand.
bool FindPawns();

// Puts the record at hand into its place, whatever stands there.
void StorePawns();

// Writes the key of no position into every record and into the one at hand.
void ClearPawnHash();

// Takes over memory for `count` records and the spare ones behind them; for hash memory only.
void SetPawnHashMemory(void* memory, int32_t count);
