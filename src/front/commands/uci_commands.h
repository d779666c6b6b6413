// The commands of the UCI dialect that are its alone.
#pragma once

#include "front/input/command_line.h"

// Names the engine and its options and enters the dialect.
void EnterUci(const CommandLine& line);

// Begins a new game, for which nothing of the last one counts.
void StartUciGame(const CommandLine& line);

// Sets an option. A line that is malformed or names no option is ignored.
void SetOption(const CommandLine& line);

// Sets the position up and plays the moves that follow it; those that are illegal are skipped.
void SetUpPosition(const CommandLine& line);

// The opponent has played as predicted, and the search that pondered on it has ended before: plays
// the move that it had found. Does nothing else.
void PlayPonderedMove(const CommandLine& line);
