// The board as a person sees it.
#pragma once

// Prints the board with coordinates, White below: in colours with pictures of the men where the
// terminal can show them, else in letters, White's in capitals.
void PrintPicture();

// Prints whose turn it is and the number of the move, and waits on the same line.
void PrintPrompt();
