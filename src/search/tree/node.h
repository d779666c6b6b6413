// One node of the main search: what its steps share.
#pragma once

#include "board/score.h"
#include "search/state.h"

// Where the moves of a node come from, in the order in which they are tried.
enum Stage { HASH_STAGE, CAPTURE_STAGE, KILLER_STAGE, QUIET_STAGE, EVASION_STAGE };

// Quiet moves remembered for the penalty when a later one cuts off.
constexpr int MAX_PENALISED = 64;

struct Node {
    int32_t alpha;
    int32_t beta;
    int32_t depth;
    PlyState& ply;
    bool nullAllowed;
    bool openWindow;
    int32_t best = -MATE;
    Move bestMove = NO_MOVE;
    Move hashMove = NO_MOVE;
    uint16_t hintBits = 0;
    bool mateThreat = false;
    bool alphaRaised = false;
    bool futile = false; // only checks are generated of the quiet moves
    int32_t staticEval = 0;
    int32_t attack = 0; // the evaluation's attack on the enemy king
    int slice = 0;      // of the history table
    int moves = 0;      // legal moves met, those left out included
    int searched = 0;
    int quiets = 0; // quiet moves searched
    Move killersTried[2] = {NO_MOVE, NO_MOVE};
    Move quietMoves[MAX_PENALISED]; // as many as `quiets` tells; clearing them all costs time

    Node(int32_t low, int32_t high, int32_t remaining, bool mayPass)
        : alpha(low), beta(high), depth(remaining), ply(PlyStates[Running.SearchPly]),
          nullAllowed(mayPass), openWindow(low + 1 < high) {}
};
