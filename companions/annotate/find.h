// What makes a game worth a look, in one line of columns.
#pragma once

#include <cstdint>
#include <string>

#include "annotated_pgn.h"

// The names of the columns, with the end of the line.
extern const char* const FIND_HEAD;

// The line of a game with its end: columns between tabs, as FIND_HEAD names them. `line` is where
// the game stands in its file. The board is left at the game's start.
std::string FindLine(const AnnotatedGame& game, size_t number, int64_t line);
