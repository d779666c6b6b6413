// What the latest evaluation has found out, for the searches and for who wants to see it.
//
// Every figure is reset at the start of each evaluation, so that none is left over from another
// position.
#pragma once

#include "board/types.h"

// Side to move at the root of the running search: whose king the personality weighs as its own.
// Set by the search driver and before an evaluation that is printed.
extern Colour RootSide;

extern int32_t current_phase; // 0 all pieces on the board .. 256 kings and pawns only
extern int32_t white_phase;   // one side's own share, 0..256
extern int32_t black_phase;
extern int32_t optimism[2];   // a side's attack and its opponent's weak shelter, centipawns
extern int32_t MaterialScore; // Black's material less White's with the imbalance, centipawns
extern int32_t AuxScore;      // secondary score that is scaled like the main one
extern uint64_t EvalMasks[4]; // by colour: passed pawns, then from EVAL_ATTACKS on attacked squares
constexpr int EVAL_ATTACKS = 2;
extern int32_t EndingFlag[2]; // the side is in the ending: its king has little to fear
extern int32_t shelter_penalty[2];
extern int32_t KingAttackers[2]; // pieces of the side that attack the enemy king's surroundings
extern int32_t Danger[2];        // what their attacks come to
extern int32_t KingAttackScore[2];

// Sets all but RootSide back.
void ResetFigures();
