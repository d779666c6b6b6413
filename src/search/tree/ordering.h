// What move ordering learns from the nodes that were searched, and how the next move is picked.
#pragma once

#include "board/moves/generate.h"
#include "board/moves/order_tables.h"

// Brings the entry with the highest score among [next, end) to `next`; the earliest of equals.
void PickMove(int next, int end);

// After a losing capture was searched in quiescence: counts the try, and the success when it beat
// alpha. Called with the side to move that made the capture.
void UpdateCaptureStats(Move move, Colour side, bool success);

// A quiet move caused a cut-off or became best: raises its history (depth in 1/60 ply, slice 0 or
// 1) and makes it the first killer of the ply. The side to move must be the one that moves.
void RewardQuiet(Move move, int32_t depth, int slice);

// A quiet move was tried before the one that cut off.
void PenaliseQuiet(Move move, int32_t depth, int slice);

// A quiet reply to check was best: remembered for the checking move that was played last.
void RememberEvasion(Move move);

// Whether a killer is pseudo-legal here.
bool KillerFits(Move move);

// At the start of a search: the statistics fade, the killers move two plies down. `keep` false
// zeroes the history instead.
void AgeOrdering(bool keep);
