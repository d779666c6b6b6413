// The state of the running search that its parts share, with the records it keeps for each ply.
#pragma once

#include "board/types.h"

constexpr int32_t ONE_PLY = 60;             // unit of every depth
constexpr int32_t MATE = 32700;             // a side mated at SearchPly p scores p - MATE
constexpr int32_t MATE_BOUND = 31000;       // scores beyond it either way are mates
constexpr int32_t MAX_SEARCH_PLY = 190;     // deeper nodes are evaluated as they stand
constexpr int32_t UNLIMITED_TIME = 9999999; // centiseconds; as a limit: none

// What one ply of the current line knows.
struct PlyState {
    int32_t inCheck;    // the side to move here is in check
    int32_t givesCheck; // the move being tried here gives check
    Move bestMove;      // of this node's result
    Move killers[2][2]; // by side to move; the latest first
    int32_t flags;      // CHECKS_TRIED
};
constexpr int32_t CHECKS_TRIED = 16;
constexpr int PLY_STATES = 200;
extern PlyState PlyStates[PLY_STATES];

extern int32_t SearchPly; // 0 before the search, 1 at the root's children
extern int32_t SelDepth;  // deepest SearchPly of this iteration
extern int32_t IterationDepth;
extern int64_t NodeCount;
extern int32_t TablebaseHits;
extern bool StopSearch;   // every node returns at once
extern bool LimitReached; // the search has stopped by itself, at its node limit

extern int32_t PollReload; // nodes between input polls
extern int32_t PollCountdown;
extern int32_t InfoCountdown; // polls to the next statistics line

extern int32_t SearchStart; // centiseconds on the process clock
extern int32_t TimeAllotted;
extern int32_t TimeHardLimit;
extern Move EasyMove;      // a root move so natural that a third of the time will do; or NO_MOVE
extern bool RootUnsettled; // the best root move has just failed high or low
extern bool UnderClock;    // the time test applies: a timed search of the game
extern int32_t DrawScore;  // of a draw for RootSide

// Score of a draw for the side to move.
int32_t DrawValue();

// Hundredths of a second since the search started.
int ElapsedTime();

void ClearKillers();
void ClearPlyStates();
