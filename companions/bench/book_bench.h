// How long a look into an opening book takes.
#pragma once

// Opens the book, looks up positions of random games and prints how many were found and the time
// of one look-up and of one choice of a move, in microseconds. False when it cannot be opened.
bool BenchBook(const char* path);
