// How much an attack on a king weighs by the number of pieces that take part.
#pragma once

#include <cstdint>

// 2048ths, never negative, by the number of attackers. Filled from the built-in weights and the
// parameters' changes to them.
constexpr int ATTACKER_WEIGHT_BITS = 11;
constexpr int ATTACKER_COUNTS = 17;
extern int32_t AttackerWeight[ATTACKER_COUNTS];

// Fills the table. Called at start-up, after the parameters are loaded, and when they change.
void InitAttackerWeight();
