// What the latest evaluation has found out, for the searches and for who wants to see it.
#pragma once

#include "board/types.h"

// Side to move at the root of the running search: whose king the personality weighs as its own.
// Set by the search driver and before an evaluation that is printed.
extern Colour RootSide;

constexpr int EVAL_ATTACKS = 2;

// Each evaluation begins with a new record, so that nothing is left over from another position.
struct EvalFigures {
    int32_t current_phase = 0; // 0 all pieces on the board .. 256 kings and pawns only
    int32_t white_phase = 0;   // one side's own share, 0..256
    int32_t black_phase = 0;
    int32_t MaterialScore = 0; // Black's material less White's with the imbalance, centipawns
    int32_t AuxScore = 6300;   // secondary score that is scaled like the main one
    int32_t optimism[2] = {};  // a side's attack and its opponent's weak shelter, centipawns
    uint64_t EvalMasks[4] =
        {}; // by colour: passed pawns, then from EVAL_ATTACKS on attacked squares
    int32_t EndingFlag[2] = {}; // the side is in the ending: its king has little to fear
    int32_t shelter_penalty[2] = {};
    int32_t KingAttackers[2] = {}; // pieces of the side that attack the enemy king's surroundings
    int32_t Danger[2] = {};        // what their attacks come to
    int32_t KingAttackScore[2] = {};
};
extern EvalFigures Figures;
