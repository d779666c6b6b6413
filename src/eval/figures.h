// What the latest evaluation has found out, for the searches and for who wants to see it.
#pragma once

#include "board/types.h"

// What the secondary score begins with, so that what is left tells how the main one was scaled.
constexpr int32_t FULL_AUX_SCORE = 6300;

// Each evaluation begins with a new record, so that nothing is left over from another position.
struct EvalFigures {
    int32_t current_phase = 0; // 0 all pieces on the board .. 256 kings and pawns only
    int32_t white_phase = 0;   // one side's own share, 0..256
    int32_t black_phase = 0;
    int32_t MaterialScore = 0; // Black's material less White's with the imbalance, centipawns
    int32_t AuxScore = FULL_AUX_SCORE; // secondary score that is scaled like the main one
    int32_t optimism[2] = {};   // a side's attack and its opponent's weak shelter, centipawns
    int32_t EndingFlag[2] = {}; // the side is in the ending: its king has little to fear
    int32_t shelter_penalty[2] = {};
    int32_t KingAttackers[2] = {}; // pieces of the side that attack the enemy king's surroundings
    int32_t Danger[2] = {};        // what their attacks come to
    int32_t KingAttackScore[2] = {};
    Bitboard passed[2] = {};  // all pawns on the files where the side has a passed one
    Bitboard attacks[2] = {}; // squares that a man of the side attacks, its king left out
};
extern EvalFigures Figures;

// A middlegame and an ending value, centipawns, mixed by the phase of the figures; truncated toward
// zero.
inline int32_t BlendByPhase(int32_t middlegame, int32_t ending) {
    constexpr int32_t fullPhase = 256;
    return ((fullPhase - Figures.current_phase) * middlegame + Figures.current_phase * ending) /
           fullPhase;
}
