// The static evaluation: its driver.
//
// Inside, every term counts from Black's view; only the last step turns the sum round for the
// side to move.
#pragma once

#include "eval/figures.h"

// No evaluation lies further from 0, however many queens stand on a board that was set up: beyond
// begin the mate scores.
constexpr int32_t EVAL_LIMIT = 30000;

// Evaluates the position in full: centipawns from the view of the side to move. Leaves the figures
// of the evaluation behind.
int32_t Evaluate();
