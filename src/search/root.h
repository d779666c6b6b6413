// The list of root moves and what each has scored.
#pragma once

#include "board/moves/generate.h"

constexpr int MAX_ROOT_MOVES = MAX_NODE_MOVES;

struct RootEntry {
    Move move = NO_MOVE;
    int32_t orderScore = 0; // the generator's
    int32_t score = 0;      // the last search's, from the root side's view
    bool givesCheck = false;
    int64_t nodes = 0; // spent below the move when they were last counted
};

struct RootList {
    RootEntry moves[MAX_ROOT_MOVES];
    int32_t count = 0;
    int32_t index = 0; // of the move being searched
    int32_t gamePly = 0;
};
extern RootList Root;

// The move of entry `i`, of which the best has 0.
inline Move RootMove(int i) {
    return Root.moves[i].move;
}

// How many of the best root moves get a score of their own and a line: what the user asked for, at
// least one. They are the first entries.
int LineCount();

// Generates the legal root moves in generator order with their order scores, and lets the host
// announce draws and the end of the game. Returns false when the game is over: no legal move is
// left.
bool PrepareRoot();

// Makes the move the only root move, as if it had been searched with score 0.
void SetOnlyRootMove(Move move);

// Gives every root move the score.
void SetRootScores(int32_t score);

// Brings the moves into the order of their scores by the generator, highest first; equal ones keep
// theirs.
void SortRootMoves();

// Moves entry `i` to `place`; those between shift one place toward where it stood.
void MoveEntry(int i, int place);

// Moves entry `i` up past those with lower scores, or down to `last` at most past those with
// higher ones. Both return its new place.
int RaiseByScore(int i);
int LowerByScore(int i, int last);

// Reorders entries `first` and up by the nodes spent on them, most first.
void ReorderByNodes(int first);
