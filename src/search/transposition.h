// The transposition table: what earlier nodes found out about a position.
//
// An entry as it lies in memory, 22 bytes, without alignment: key (8 bytes, without the side to
// move), depth (2, in 1/60 ply), score (4), flags (4: bits 0-20 move, 21-22 bound, 23 side to
// move, 30 mate threat; 0 marks an empty slot), age (2), hint bits (2).
#pragma once

#include "board/types.h"
#include "search/host.h"

constexpr int TRANSPOSITION_ENTRY_BYTES = 22;
// Behind the last index, so that its second slot lies inside the array.
constexpr int TRANSPOSITION_SPARE_ENTRIES = 10;
// Tablebase results outrank whatever is searched.
constexpr int32_t TABLEBASE_DEPTH = 11820;

// What a probe found; all zero after a miss.
struct HashHit {
    bool found;
    Move move;
    int32_t score; // as stored: mates count from the storing node
    int32_t depth;
    BoundType bound;
    bool mateThreat;
    uint16_t hintBits;
};

// Slots that the current generation filled in this search; set back by the search driver. Entries
// that were refreshed by a hit are not counted.
extern int32_t HashFilledCount;

// The key under which the position is stored: placement, castling rights, and the en-passant
// file where a pawn stands ready to take.
uint64_t HashKey();

// Begins to fetch from memory the slot of the position with that placement and the other side to
// move, as it will be after a move. Lost castling rights and the en-passant file are left out:
// where they count, the wrong slot is fetched and nothing else happens.
void PrefetchHash(uint64_t placement);

// Looks the current position up; a hit refreshes the entry's age.
HashHit HashProbe();

// Stores for the current position: depth in 1/60 ply, mate scores counted from the root (they are
// turned round here by SearchPly). Keeps a deeper entry of the same position, or of the same
// generation, but merges the hint bits into the former.
void HashStore(int32_t depth, Move move, int32_t score, BoundType bound, bool mateThreat,
               uint16_t hintBits);

// The store of the quiescence search at depth 0: leaves a matching or current entry with depth
// above 0 as it is, but for the hint bits and the age of the former.
void HashStoreQuiescence(Move move, int32_t score, BoundType bound, uint16_t hintBits);

// An exact score as stored, counted from the root again.
int32_t MateFromHash(int32_t score);

// Thousandths of the table that this search filled; 0 without a table.
int32_t HashFull();

// Empties every slot and sets HashAge to 0.
void ClearHash();

// Takes over memory for `count` entries and the spare ones behind them, not yet cleared; for hash
// memory only. Without memory, or with a count of 0, every probe misses and every store is dropped.
void SetTranspositionMemory(void* memory, int32_t count);
