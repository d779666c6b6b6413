// The UCI dialect: what its commands set, and how it shows thinking and moves.
#pragma once

#include "board/types.h"
#include "front/input/command_line.h"
#include "search/host.h"

// Names the engine and its options and enters the dialect.
void EnterUci(const CommandLine& line);

// Sets an option. A line that is malformed or names no option is ignored.
void SetOption(const CommandLine& line);

// Sets the position up and plays the moves that follow it; those that are illegal are skipped.
void SetUpPosition(const CommandLine& line);

// The opponent has played as predicted, and the search that pondered on it has ended before: plays
// the move that it had found. Does nothing else.
void PlayPonderedMove(const CommandLine& line);

// Prints the line of the best variation, unless forced only when enough nodes have passed since the
// last.
void PrintUciVariation(bool forced, BoundType bound);

// Prints a line for each of the best moves that the user wants, unless the search has just begun.
// The bound is that of root move `line` and stands in its line only.
void PrintUciVariations(BoundType bound, int line);

// Prints which root move is being searched, under the same condition.
void PrintUciCurrentMove();

// Prints speed and table figures of a search that has gone on for a while.
void PrintUciStatistics();

// Announces the engine's move, which has not been made yet, and the reply that it expects.
void AnnounceUciMove(Move move);
