// A game of the engine against itself, as the labelled positions that it leaves.
#pragma once

#include <cstdint>
#include <string>

#include "companions/shared/opening_lines.h"

struct GameSettings {
    int nodes = 5000; // of the search for each move
    int every = 1;    // quiet position of the game is written
};

// Plays the game of that seed and returns the lines of its quiet positions, perhaps none. A
// function of its arguments, the engine and its parameters: what was played before does not matter.
std::string PlayGame(uint64_t seed, const GameSettings& settings, const OpeningLines& openings);
