#include "search/state.h"

#include "board/position.h"
#include "eval/evaluate.h"
#include "platform/clock.h"

constinit PlyState PlyStates[PLY_STATES] = {};
constinit int32_t SearchPly = 0;
constinit int32_t SelDepth = 0;
constinit int32_t IterationDepth = 0;
constinit int64_t NodeCount = 0;
constinit int32_t TablebaseHits = 0;
constinit bool StopSearch = false;
constinit bool LimitReached = false;
constinit int32_t PollReload = 50000;
constinit int32_t PollCountdown = 50000;
constinit int32_t InfoCountdown = 2;
constinit int32_t SearchStart = 0;
constinit int32_t TimeAllotted = UNLIMITED_TIME;
constinit int32_t TimeHardLimit = UNLIMITED_TIME;
constinit Move EasyMove = NO_MOVE;
constinit bool RootUnsettled = false;
constinit bool UnderClock = false;
constinit int32_t DrawScore = 0;

int32_t DrawValue() {
    return SideToMove == RootSide ? DrawScore : -DrawScore;
}

int ElapsedTime() {
    return ClockCentiseconds() - SearchStart;
}

void ClearKillers() {
    for (PlyState& state : PlyStates)
        state.killers[WHITE][0] = state.killers[WHITE][1] = state.killers[BLACK][0] =
            state.killers[BLACK][1] = NO_MOVE;
}

void ClearPlyStates() {
    for (PlyState& state : PlyStates)
        state = {};
}
