// The state of the running search that its parts share, with the records it keeps for each ply.
#pragma once

#include "board/score.h"
#include "board/types.h"

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

// What a search may use of the clock, which is decided before it begins and once more when the
// opponent plays the predicted move. Times in centiseconds.
struct TimeBudget {
    int32_t SearchStart = 0; // on the process clock
    int32_t TimeAllotted = UNLIMITED_TIME;
    // Below 0, the first look at the clock ends the search.
    int32_t TimeHardLimit = UNLIMITED_TIME;
    int32_t PollReload = 50000; // nodes between input polls
    int32_t DrawScore = 0;      // of a draw for RootSide
    bool UnderClock = false;    // the time test applies: a timed search of the game
    int32_t LevelNodes = 0; // nodes that a level below full strength allows; 0 for no such level
};
extern TimeBudget Budget;

// Where the running search is. Every search begins with a new one.
struct SearchState {
    int32_t SearchPly = 0; // 0 before the search, 1 at the root's children
    int32_t SelDepth = 2;  // deepest SearchPly of this iteration
    int32_t IterationDepth = 1;
    int32_t PollCountdown = 50000;
    int64_t NodeCount = 0;
    bool StopSearch = false;    // every node returns at once
    bool LimitReached = false;  // the search has stopped by itself, at its node limit
    bool RootUnsettled = false; // the best root move has just failed high or low, or is a new one
    Move LeadingMove = NO_MOVE; // the best root move when the iteration began
    Move EasyMove = NO_MOVE; // a root move so natural that a third of the time will do; or NO_MOVE
    int32_t InfoCountdown = 2; // polls to the next statistics line
    int32_t TablebaseHits = 0;
};
extern SearchState Running;

// Score of a draw for the side to move.
int32_t DrawValue();

// Hundredths of a second since the search started.
int ElapsedTime();

// The same in thousandths.
int64_t ElapsedMilliseconds();

// Polls between two lines of statistics.
int32_t StatisticsInterval();

// For assertions in the nodes of a search: its ply has a record, which claims no check that is
// none. Where a set-up board has a king in check that does not move, checks may go unnoticed.
bool SearchPlyIsSound();

// Forgets the killers of all plies, or all that plies know.
void ClearKillers();
void ClearPlyStates();
