// Which of the book's moves is played.
#pragma once

#include "board/types.h"

// A move that the book has for the position on the board, legal there, a pawn on the last rank
// becoming a queen; NO_MOVE when the position is not in the book or no move of it may be played.
// Draws on the runtime's random sequence.
Move ChooseBookMove();

// Prints the book's moves for the position on the board, with their weights or results.
void ListBookMoves();
