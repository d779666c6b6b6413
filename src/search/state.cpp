#include "search/state.h"

#include "board/attackers.h"
#include "board/position.h"
#include "eval/parameters/personality.h"
#include "platform/clock.h"

// Nodes between two lines of statistics.
static constexpr int32_t STATISTICS_NODES = 100000;

constinit PlyState PlyStates[PLY_STATES] = {};
constinit TimeBudget Budget;
constinit SearchState Running;

int32_t DrawValue() {
    return SideToMove == RootSide ? Budget.DrawScore : -Budget.DrawScore;
}

int ElapsedTime() {
    return ClockCentiseconds() - Budget.SearchStart;
}

int64_t ElapsedMilliseconds() {
    return ClockMilliseconds() - int64_t{Budget.SearchStart} * 10;
}

int32_t StatisticsInterval() {
    return STATISTICS_NODES / Budget.PollReload;
}

bool SearchPlyIsSound() {
    if (Running.SearchPly < 0 || Running.SearchPly > MAX_SEARCH_PLY)
        return false;
    return !PlyStates[Running.SearchPly].inCheck || InCheck(SideToMove);
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
