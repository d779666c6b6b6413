// The names of openings, found by positions, so that the order of moves does not matter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "played_game.h"

struct Opening {
    std::string_view eco;  // "B90"; empty when there is none
    std::string_view name; // "Sicilian Defense: Najdorf Variation"
    size_t bookPlies = 0;  // so many moves of the game lead from one position of a line to another
};

class Openings {
public:
    // Plays all carried lines; the tables of the board must be there.
    Openings();
    // Of a game from the usual start; the board is left at its start.
    Opening Find(const PlayedGame& game) const;

private:
    struct Line {
        std::string_view eco;
        std::string_view name;
    };
    // By key of the position and side to move. A position inside a line has no name of its own.
    std::unordered_map<uint64_t, Line> positions;
};
