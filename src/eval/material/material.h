// The material table: phase, endings and imbalance of every material signature.
#pragma once

#include "board/position.h"
#include "eval/material/imbalance.h"

// A phase goes from 0 to this, while pieces disappear.
constexpr int PHASE_RANGE = 256;

struct MaterialEntry {
    uint8_t flags[2];     // MATERIAL_CANNOT_WIN, MATERIAL_ENDING, by colour
    int16_t currentPhase; // of both sides together
    int16_t blackPhase;
    int16_t whitePhase;
    int16_t adjustment; // centipawns, added to Black's material less White's
};
static_assert(sizeof(MaterialEntry) == 10);

constexpr int MATERIAL_CANNOT_WIN = 1;
constexpr int MATERIAL_ENDING = 2;

// One entry for every signature with at most two pieces of a kind a side.
extern MaterialEntry MaterialTable[MATERIAL_INVALID];

// Fills the table. Called at start-up, after the parameters are loaded, and when they change.
void InitMaterialTable();

// The entry of the current position; computed directly where no signature can be formed.
MaterialEntry CurrentMaterial();

// The men on the board.
MenOfSide MenOnBoard(Colour side);

// Whether `side` is in the ending: its opponent has too few pieces left to attack its king.
bool InEnding(Colour side);
