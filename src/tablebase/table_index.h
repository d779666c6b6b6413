// Where a position's entry stands in the table of its class.
//
// One scheme serves all classes; it is driven by the men of the class. With three and four men it
// has been compared with every byte of the published tables. With five and six men it follows the
// same rules by analogy and has not been compared with real tables; only the numbers of entries
// (without the en-passant range) have.
#pragma once

#include <cstddef>
#include <cstdint>

#include "board/types.h"
#include "tablebase/classes.h"

// The men of a position in the terms of its class: side 0 is the first-named one and plays up the
// board, whatever its colour.
struct TablebaseMen {
    int32_t king[2];
    Bitboard men[2][TB_KINDS];
};

constexpr int NO_EN_PASSANT = 127;
constexpr uint64_t NO_ENTRY = UINT64_MAX;

// The men on the board. With `swapped` Black is side 0: colours are exchanged and the board is
// turned top to bottom. Whoever passes `swapped` turns an en-passant square likewise (square ^ 56)
// and exchanges the side to move.
TablebaseMen CollectTablebaseMen(bool swapped);

// Computes what the index of a class and side needs, and keeps it until `ReleaseIndexes`. False
// when memory is out. Does nothing when it is there already. `side` is WHITE when the first-named
// side is to move. Not to be called while another thread computes indexes.
bool PrepareIndex(int classNumber, Colour side);
void ReleaseIndexes();
// Bytes that the prepared indexes take.
size_t IndexMemory();
// Bytes that one `PrepareIndex` of this class takes, for telling what could not be had.
size_t IndexMemory(int classNumber);

// Number of entries in the table, without the published tables' cut after the last entry that is
// in use: an upper bound for a file's entries. Needs no preparation, but time: not for probes.
uint64_t TableEntries(int classNumber, Colour side);
// The first entry of the en-passant range, where a class has one; else `TableEntries`.
uint64_t MainTableEntries(int classNumber, Colour side);

// Offset of the position's entry, NO_ENTRY when no entry can hold it (kings side by side, or a man
// of the side to move giving a check from nearby). Needs a prepared index, and men of this very
// class. `epSquare` is the square of the pawn that has just made a double step, or NO_EN_PASSANT;
// it counts only with a pawn of the side to move beside it.
uint64_t TableIndex(int classNumber, Colour side, const TablebaseMen& men, int epSquare);
