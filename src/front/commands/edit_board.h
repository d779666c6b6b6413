// Setting a position up man by man, as the old protocol does.
#pragma once

#include "front/input/command_line.h"

// Takes characters from the input until "." or its end: "#" empties the board, "c" changes the
// colour that is placed, a piece letter or "x" with a square places or removes a man. Anything
// else prints "Error". Castling rights then follow from the placement.
void EditBoard(const CommandLine& line);
