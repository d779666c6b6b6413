// The commands that print what the engine knows of the position and of its files.
#pragma once

#include "front/input/command_line.h"

void ShowBoard(const CommandLine& line);

// The castling rights, as their number.
void ShowFlags(const CommandLine& line);

// The legal moves in generator order, each with its order score.
void ShowMoves(const CommandLine& line);

// The halves of the position's book key, and what the book knows of it.
void ShowBookMoves(const CommandLine& line);

// Whether tablebases are used, where they are looked for, and how many men they cover.
void ShowTablebaseStatus(const CommandLine& line);

// Counts the leaves of the move tree of that depth and the time that it takes; nothing without a
// depth.
void RunPerft(const CommandLine& line);
