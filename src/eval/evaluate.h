// The static evaluation: its driver.
//
// Inside, every term counts from Black's view; only the last step turns the sum round for the
// side to move.
#pragma once

#include "eval/figures.h"

// No evaluation lies further from 0, however many queens stand on a board that was set up: beyond
// begin the mate scores.
constexpr int32_t EVAL_LIMIT = 30000;

// The bound that every caller passes: none at all.
constexpr int32_t FULL_BOUND = 32700;

// Evaluates the position in full and stores the score in centipawns from the view of the side to
// move. Leaves the figures of the evaluation behind.
void Evaluate(int32_t& score, int32_t bound);
