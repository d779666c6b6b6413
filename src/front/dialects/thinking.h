// What the engine shows of its thinking, and the move it announces.
#pragma once

#include "board/types.h"
#include "search/host.h"

// The root move whose tree the running search is in.
Move MoveBeingSearched();

// Prints the variation of root move `index` as " %s" for each move: the root move, then what the
// transposition table tells, 20 moves at most. Works at the root and below its first move.
void PrintVariationMoves(int index);

// Prints the thinking line of the best root move when it is wanted: depth, score, hundredths of a
// second, nodes and variation. Unless forced, searches just begun stay silent.
void PrintThinking(bool forced);

// Announces the engine's move, which has not been made yet: the last thinking line unless the move
// comes from the book, "resign" when the rule says so, and the move.
void AnnounceMove(Move move, bool fromBook);
