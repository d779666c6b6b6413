// Static evaluation of all positions of an EPD file.
#pragma once

// Prints the static score of each line of the file for its side to move, one a line, and copies
// every tenth line to "out.epd". Of a line only the first 255 characters count. A file that cannot
// be opened has no lines; where "out.epd" cannot be written, nothing is copied. The last position
// stays on the board.
void EpdEvaluate(const char* path);
