// The list of root moves and what each has scored.
#pragma once

#include "board/generate.h"

// The root moves are the first entries of the move stack; these run parallel to them.
constexpr int MAX_ROOT_MOVES = MAX_NODE_MOVES;
extern int32_t RootMoveCount;
extern int32_t RootScores[MAX_ROOT_MOVES]; // from the root side's view
extern bool RootGivesCheck[MAX_ROOT_MOVES];
extern int64_t RootNodes[MAX_ROOT_MOVES];
extern int32_t RootIndex; // the move being searched
extern int32_t RootGamePly;

inline Move RootMove(int i) {
    return MoveStack[i].move;
}

// Empties the move stack, generates the legal root moves in generator order with their order
// scores, and lets the host announce draws and the end of the game. Returns false when the game
// is over: no legal move is left.
bool PrepareRoot();

// Brings the moves into the order of their scores, highest first; equal ones keep theirs.
void SortRootMoves();

// Moves entry `i` to the front; those before it shift down one place.
void MoveToFront(int i);

// Takes that back: the first entry returns to place `i`, those before it shift up.
void MoveFromFront(int i);

// Reorders entries 1 and up by the nodes spent on them, most first.
void ReorderByNodes();
