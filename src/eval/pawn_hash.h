// The memory of the pawn table: one record for each pawn structure, found by `PawnKey`.
//
// A record as it lies in memory has 26 bytes, without alignment; the first 8 are its key.
#pragma once

#include <cstdint>

constexpr int PAWN_ENTRY_BYTES = 26;
constexpr int PAWN_SPARE_ENTRIES = 2;

// Base of the records, and how many the table has without the spare ones; 0 switches it off.
// Written by hash memory.
extern uint8_t* PawnHashTable;
extern int32_t PawnHashSlots;

// Writes the key of no position into every record.
void ClearPawnHash();

// Takes over memory for `count` records and the spare ones behind them; for hash memory only.
void SetPawnHashMemory(void* memory, int32_t count);
