#include "search/poll.h"

#include <algorithm>

#include "board/position.h"
#include "eval/evaluate.h"
#include "search/driver_state.h"
#include "search/host.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"

namespace {

// A score that fell by more than this, in centipawns, is worth thinking about ...
constexpr int SMALL_FALL = 20;
// ... and one that fell by more than this is a danger.
constexpr int LARGE_FALL = 60;
// From this rise on, a score that was about level is worth getting right as well.
constexpr int RISE = 26;

} // namespace

// The allotment in centiseconds as the course of the search corrects it: less for an easy move,
// more when the score has turned since the last search of the game.
static int AdjustedAllotment(bool easy) {
    const int allotment = easy ? TimeAllotted / 3 : TimeAllotted;
    const int previous = LastScoreSide == RootSide ? LastScore : -LastScore;
    const int change = RootScores[0] - previous;
    if (change >= RISE)
        return previous >= -9 && previous < 120 ? allotment * 2 : allotment;
    if (change < -LARGE_FALL)
        return allotment * (SearchesSinceBook != 0 ? 7 : 4);
    if (change < -SMALL_FALL)
        return allotment * 2 + allotment / 2;
    return allotment;
}

static bool TimeIsUp() {
    const int elapsed = ElapsedTime();
    if (FixedTime > 0)
        return elapsed >= TimeHardLimit;
    const bool easy = EasyMove != NO_MOVE && RootMove(0) == EasyMove;
    if (!easy)
        EasyMove = NO_MOVE;
    // A best move in doubt is given the time to be confirmed or refuted.
    if (RootUnsettled && !easy && elapsed <= std::min(TimeAllotted * 5 / 3, TimeHardLimit))
        return false;
    return std::min(AdjustedAllotment(easy), TimeHardLimit) <= elapsed;
}

static bool ClockRuns() {
    return UnderClock && !GoPonder && !Analysing;
}

void Poll() {
    PollCountdown = PollReload;
    if (Host.inputWaiting()) {
        Host.handleInput();
        if (StopSearch)
            return;
    }
    if (NodeLimit > 0 && NodeCount >= NodeLimit) {
        StopSearch = LimitReached = true;
        return;
    }
    if (--InfoCountdown < 0) {
        InfoCountdown = 100000 / PollReload;
        Host.printStatistics();
    }
    if (ClockRuns() && TimeIsUp())
        StopSearch = true;
}

void HoldUntilStopped() {
    // A search that nobody has told to stop yet keeps its move, whatever has ended it.
    if (LimitReached)
        StopSearch = false;
    while (!StopSearch && (GoPonder || (OwnTime == INFINITE_TIME && !Analysing)) &&
           Host.waitForInput())
        Host.handleInput();
}
