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

// How many of the best root moves get a score of their own and a line: what the user asked for, at
// least one. They are the first entries.
int LineCount();

// Empties the move stack, generates the legal root moves in generator order with their order
// scores, and lets the host announce draws and the end of the game. Returns false when the game
// is over: no legal move is left.
bool PrepareRoot();

// Makes the move the only root move, as if it had been searched with score 0.
void SetOnlyRootMove(Move move);

// Brings the moves into the order of their scores, highest first; equal ones keep theirs.
void SortRootMoves();

// Moves entry `i` to `place`; those between shift one place toward where it stood.
void MoveEntry(int i, int place);

// Moves entry `i` up past those with lower scores, or down to `last` at most past those with
// higher ones. Both return its new place.
int RaiseByScore(int i);
int LowerByScore(int i, int last);

// Reorders entries `first` and up by the nodes spent on them, most first.
void ReorderByNodes(int first);
