// Reads what a book is built from: games with results, and lists of opening lines.
#pragma once

#include <cstdint>
#include <string>

#include "move_counter.h"

enum SidesCounted : int32_t { ONLY_WHITE, ONLY_BLACK, BOTH_SIDES };

// Which moves of a source are counted.
struct SourceRules {
    int depth = 40; // plies of every game and line
    SidesCounted sides = BOTH_SIDES;
    std::string player;      // only moves of players whose name has this in it
    bool onlyWinner = false; // only moves of those who won the game

    bool CountsSide(Colour side) const {
        return sides == BOTH_SIDES || sides == (side == WHITE ? ONLY_WHITE : ONLY_BLACK);
    }
};

// Counts the moves of a PGN file. A move that cannot be read is named with its game and ends it;
// reading goes on with the next game. False, with a message, when the file cannot be opened.
bool CountGames(const std::string& path, const SourceRules& rules, MoveCounter& counter);

// Counts the moves of a list of opening lines, each from the starting position, as played once
// without a result. Every line of the file is one; where it has columns separated by tabs, the
// last one has the moves, and a first line whose last column is "pgn" is a heading. Lines that
// begin with "#" are comments. A move that cannot be read is named and ends its line.
bool CountLines(const std::string& path, const SourceRules& rules, MoveCounter& counter);
