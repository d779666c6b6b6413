// What kings have to fear: how well their pawns shelter them, and what attacks on them are worth.
#pragma once

#include "board/types.h"

// Sets `shelter_penalty` of the side and returns what its shelter is worth to it, centipawns and
// mostly negative, weighed by the personality for `RootSide` and for its opponent. Needs `Pawns` of
// the position.
int32_t KingShelter(Colour side);

// What the attack of that side's pieces on the enemy king is worth, centipawns, from `Danger`,
// `KingAttackers` and the enemy's `shelter_penalty`.
int32_t KingAttack(Colour side);

// The figures of a printed evaluation. They are simpler than what it counts with, and read the
// danger table a little further on; who compares evaluations relies on them as they are. `king` is
// the side whose king is attacked and sheltered.
int32_t PrintedAttack(Colour king);
int32_t PrintedShelter(Colour king);
