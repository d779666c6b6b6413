// The count of positions for a person, move by move.
#pragma once

// Prints for each legal move how many positions follow it, then all together and their rate.
void PrintDividedPerft(int depth);
