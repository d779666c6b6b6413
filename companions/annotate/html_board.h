// A chess board as SVG.
#pragma once

#include <string>

#include "board/types.h"

// The figures and the squares, which all boards of a page use: once a page, before any board.
std::string BoardSymbols();

// The position on the board, with a frame round the squares of the last move unless it is NO_MOVE.
std::string BoardPicture(Move last);

// What a legal move changes, as the page's script reads it: a square and what stands there after
// the move, "e2.e4P" for 1. e4. Asked before the move is made.
std::string BoardChanges(Move move);

// The men of the position on the board as in a FEN.
std::string Placement();
