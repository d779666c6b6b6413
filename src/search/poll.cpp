#include "search/poll.h"

#include <algorithm>

#include "board/position.h"
#include "eval/parameters/personality.h"
#include "search/driver_state.h"
#include "search/host.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/strength.h"

namespace {

// A score that fell by more than this, in centipawns, is worth two and a half times the allotment,
constexpr int SMALL_FALL = 20;
// and one that fell by more than this is a danger.
constexpr int LARGE_FALL = 60;
// From this rise on, a score that was about level is worth getting right as well: twice the
// allotment.
constexpr int RISE = 26;
// About level: from this score up to, but not including, that one.
constexpr int LEVEL_FROM = -9;
constexpr int LEVEL_BELOW = 120;
// How many times the allotment a danger is worth, in a game that has left the book before and with
// the first move after it.
constexpr int DANGER_TIMES = 7;
constexpr int FRESH_DANGER_TIMES = 4;
// An easy move gets a third of the allotment, and a best move in doubt is waited for up to five.
constexpr int EASY_THIRDS = 1;
constexpr int DOUBT_THIRDS = 5;

} // namespace

// So many thirds of the allotment, in centiseconds.
static int Thirds(int thirds) {
    return Budget.TimeAllotted * thirds / 3;
}

// The allotment in centiseconds as the course of the search corrects it: less for an easy move,
// more when the score has turned since the last search of the game.
static int AdjustedAllotment(bool easy) {
    const int allotment = easy ? Thirds(EASY_THIRDS) : Budget.TimeAllotted;
    const int previous = Past.LastScoreSide == RootSide ? Past.LastScore : -Past.LastScore;
    const int change = Root.moves[0].score - previous;
    if (change >= RISE)
        return previous >= LEVEL_FROM && previous < LEVEL_BELOW ? allotment * 2 : allotment;
    if (change < -LARGE_FALL)
        return allotment * (Past.SearchesSinceBook != 0 ? DANGER_TIMES : FRESH_DANGER_TIMES);
    if (change < -SMALL_FALL)
        return allotment * 2 + allotment / 2;
    return allotment;
}

static bool TimeIsUp() {
    const int elapsed = ElapsedTime();
    if (Limits.FixedTime > 0)
        return elapsed >= Budget.TimeHardLimit;
    const bool easy = Running.EasyMove != NO_MOVE && RootMove(0) == Running.EasyMove;
    if (!easy)
        Running.EasyMove = NO_MOVE;
    // A best move in doubt is given the time to be confirmed or refuted.
    if (Running.RootUnsettled && !easy &&
        elapsed <= std::min(Thirds(DOUBT_THIRDS), Budget.TimeHardLimit))
        return false;
    return std::min(AdjustedAllotment(easy), Budget.TimeHardLimit) <= elapsed;
}

static bool ClockRuns() {
    return Budget.UnderClock && !Limits.GoPonder && !Limits.Analysing;
}

// A level ends no first iteration: who has not seen all moves could take any.
static bool NodesAreUsedUp() {
    if (Limits.NodeLimit > 0 && Running.NodeCount >= Limits.NodeLimit)
        return true;
    return HeldToLevel() && Running.IterationDepth > 1 && Running.NodeCount >= Budget.LevelNodes;
}

void Poll() {
    Running.PollCountdown = Budget.PollReload;
    if (Host.inputWaiting()) {
        Host.handleInput();
        if (Running.StopSearch)
            return;
    }
    if (NodesAreUsedUp()) {
        Running.StopSearch = Running.LimitReached = true;
        return;
    }
    if (--Running.InfoCountdown < 0) {
        Running.InfoCountdown = StatisticsInterval();
        Host.printStatistics();
    }
    if (ClockRuns() && TimeIsUp())
        Running.StopSearch = true;
}

void HoldUntilStopped() {
    // A search that nobody has told to stop yet keeps its move, whatever has ended it.
    if (Running.LimitReached)
        Running.StopSearch = false;
    while (!Running.StopSearch &&
           (Limits.GoPonder || (Clock.OwnTime == INFINITE_TIME && !Limits.Analysing)) &&
           Host.waitForInput())
        Host.handleInput();
}
