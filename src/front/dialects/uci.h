// The UCI dialect: "info" lines of the search, and "bestmove" with the reply to expect.
#pragma once

#include "front/game/dialect.h"

extern const Dialect UciDialect;

// Prints the line of the best variation, unless forced only when enough nodes have passed since the
// last.
void PrintUciVariation(bool forced, BoundType bound);

// Names the move, which has not been made yet, with the reply that is expected.
void PrintBestMove(Move move);
