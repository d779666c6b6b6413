// How strong the engine is to play, and what a level below its full strength is allowed.
//
// Levels bear numbers that look like ratings, and are in the order of games between them. Only
// searches whose move is played are held to one: analysis and pondering have the full strength.
#pragma once

#include <cstdint>

constexpr int32_t LEAST_ELO = 800;
constexpr int32_t MOST_ELO = 2800;

struct PlayStrength {
    bool Limited = false;
    int32_t Elo = MOST_ELO; // of the level, where it is limited
};
// What the user has set: written by the two procedures below, set back by nobody.
extern PlayStrength Strength;

// Play at that level from the next search on, or at the nearest that there is; or as well as can
// be.
void PlayAtLevel(int32_t elo);
void PlayAtFullStrength();

struct Allowance {
    int32_t nodes;     // of a search, beyond its first iteration
    int32_t slips;     // lesser moves that are taken for the best, in a hundred
    int32_t slipBound; // by how much they may look worse at first sight, in centipawns
    int32_t bookMoves; // known by heart
};

// What the level in force allows.
Allowance AllowanceOfLevel();

// Whether the running search is held to a level.
bool HeldToLevel();
