// The console's view of the board.
#pragma once

// Prints eight lines, rank 8 first: two characters a square, "*" before a black man's letter.
void PrintBoard();
