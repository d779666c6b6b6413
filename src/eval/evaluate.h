// The static evaluation: its driver and the figures that it leaves behind.
//
// Inside, every term counts from Black's view; only the last step turns the sum round for the
// side to move.
#pragma once

#include "board/position.h"

// Side to move at the root of the running search: whose king the personality weighs as its own.
// Set by the search driver and before an evaluation that is printed.
extern Colour RootSide;

// Figures of the latest evaluation, reset at the start of each.
extern int32_t current_phase; // 0 all pieces on the board .. 256 kings and pawns only
extern int32_t white_phase;   // one side's own share, 0..256
extern int32_t black_phase;
extern int32_t optimism[2];   // a side's attack and its opponent's weak shelter, centipawns
extern int32_t MaterialScore; // Black's material less White's with the imbalance, centipawns
extern int32_t AuxScore;      // secondary score that is scaled like the main one
extern uint64_t EvalMasks[4]; // by colour: passed pawns, then from EVAL_ATTACKS on attacked squares
constexpr int EVAL_ATTACKS = 2;
extern int32_t shelter_penalty[2];
extern int32_t Danger[2];
extern int32_t KingAttackScore[2];

// No evaluation lies further from 0, however many queens stand on a board that was set up: beyond
// begin the mate scores.
constexpr int32_t EVAL_LIMIT = 30000;

// The bound that every caller passes: none at all.
constexpr int32_t FULL_BOUND = 32700;

// Evaluates the position in full and stores the score in centipawns from the view of the side to
// move.
void Evaluate(int32_t& score, int32_t bound);
