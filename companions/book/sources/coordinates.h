// Moves as from-square and to-square: what a book holds, and how they are written.
#pragma once

#include <string>
#include <string_view>

#include "board/types.h"

// The legal move of the position on the board between two squares, a pawn on the last rank becoming
// a queen; NO_MOVE when there is none, or a number is no square.
Move LegalMoveBetween(int from, int to);

// The legal move that the text names, as "e2e4" or "e7e8q"; NO_MOVE for any other text, and for a
// promotion to a lesser piece, which no book can hold.
Move LegalMoveFromCoordinates(std::string_view text);

// Four characters for two squares.
std::string SquaresText(int from, int to);

// Whether a book can hold the move.
bool FitsBook(Move move);
