#include "search/time_allotment.h"

#include <algorithm>
#include <cstdint>

#include "board/position.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/strength.h"

namespace {

// Moves that a game, or the time to its next control, is divided among.
constexpr int MOVES_AHEAD = 30;
// The worth of a draw, in centipawns, by how many tenths of the safe time are left: a side that is
// about to lose on time is glad of one.
constexpr int LAST_TENTH = 19;
constexpr int32_t ClockDrawScore[LAST_TENTH + 1] = {50, 40, 32, 26, 22, 20, 18, 17, 16, 15,
                                                    14, 13, 12, 11, 10, 9,  8,  7,  6,  5};
// Three increments, or a twentieth of the time if that is less, are safe; and at least this, in
// centiseconds.
constexpr int64_t SAFE_TIME = 250;
// With fewer moves to go than this the clock will soon be full again.
constexpr int CONTROL_IS_NEAR = 4;
constexpr int64_t LEAST_ALLOTMENT = 5;
constexpr int64_t USABLE_PERCENT = 95;
// A search in trouble may take so many times the allotment.
constexpr int64_t MOST_ALLOTMENTS = 7;
// As a hard limit: the first look at the clock ends the search.
constexpr int64_t AT_ONCE = -1;
// Searches after the last book move that get a fifth more: the positions are new to the engine.
constexpr int32_t FRESH_SEARCHES = 2;

// Nodes between two looks at the clock, by the time that is allotted: 5000 nodes are some
// milliseconds. Centiseconds.
constexpr int32_t LONG_SEARCH = 300;
constexpr int32_t MEDIUM_SEARCH = 100;
constexpr int32_t POLL_LONG = 50000;
constexpr int32_t POLL_MEDIUM = 20000;
constexpr int32_t POLL_SHORT = 5000;
constexpr int32_t POLL_FINE = 1000;
// And parts of what a level allows, after each of which it is looked at.
constexpr int32_t LEVEL_PARTS = 16;

} // namespace

// Moves to make from that game ply on before the clock is set again; 0 for sudden death.
static int MovesToControl(int gamePly) {
    const int moves = Clock.MovesPerPeriod;
    if (moves <= 0 || Clock.MovesToGo)
        return std::clamp(moves, 0, MOVES_AHEAD);
    const int move = gamePly / 2 + 1;
    const int64_t control = moves < move ? (int64_t{move - 1} / moves + 1) * moves : int64_t{moves};
    return int(std::min<int64_t>(control - move + 1, MOVES_AHEAD));
}

static void SetLimits(int64_t allotted, int64_t hardLimit) {
    Budget.TimeAllotted = int32_t(std::clamp<int64_t>(allotted, 1, UNLIMITED_TIME));
    Budget.TimeHardLimit = int32_t(std::clamp<int64_t>(hardLimit, AT_ONCE, UNLIMITED_TIME));
}

static void DivideClock(int64_t usable, int movesToGo) {
    const int64_t increment = std::max(Clock.OwnIncrement, 0);
    const int64_t half = usable / 2;
    const int64_t moves = movesToGo > 0 ? movesToGo : MOVES_AHEAD;
    int64_t allotment = ((moves - 1) * increment + usable) / moves;
    const int64_t most = MOST_ALLOTMENTS * allotment;
    const int64_t cap = movesToGo > 0 ? most : std::min(most, half);
    if (Past.SearchesSinceBook < FRESH_SEARCHES)
        allotment += allotment / 5;
    allotment = std::max(allotment, LEAST_ALLOTMENT);
    // The time test gives what is kept back to searches whose score has turned.
    SetLimits(3 * allotment / 4, std::min({half, MOST_ALLOTMENTS * allotment, cap}));
}

// With little time left and the opponent's clock ahead, a draw is worth something.
static void ValueDrawByClock(int64_t time, int64_t usable, int movesToGo) {
    const int64_t opponent = Clock.OpponentTime;
    if (opponent == NO_CLOCK || (movesToGo > 0 && movesToGo < CONTROL_IS_NEAR))
        return;
    const int64_t increment = std::max(Clock.OwnIncrement, 0);
    const int64_t safe = std::max(std::min(3 * increment, time / 20), SAFE_TIME);
    if (opponent <= usable || (opponent <= usable + usable / 2 && usable >= safe / 2))
        return;
    if ((increment == 0 && usable < 2 * safe) || usable < safe)
        Budget.DrawScore = ClockDrawScore[std::clamp<int64_t>(10 * usable / safe, 0, LAST_TENTH)];
}

// What a move will lose on its way, in hundredths.
static int64_t Overhead() {
    return (int64_t{SearchOptions.MoveOverhead} + 9) / 10;
}

// The remaining time without the overhead; a clock that is left nothing by that still runs.
static int64_t TimeLeft() {
    if (Clock.OwnTime == NO_CLOCK && Clock.PlayByBaseTime)
        return std::max(Clock.BaseTime, 1);
    if (Clock.OwnTime == NO_CLOCK || Clock.OwnTime == INFINITE_TIME)
        return Clock.OwnTime;
    return std::max<int64_t>(Clock.OwnTime - Overhead(), 1);
}

// The time for every move without the overhead, but not so little that a short one is all overhead.
static int64_t TimeForMove() {
    return std::max<int64_t>({Limits.FixedTime - Overhead(), Limits.FixedTime / 2, 1});
}

// Time that can be used without the clock's running out on the way to the opponent.
static int64_t UsableTime() {
    return TimeLeft() * USABLE_PERCENT / 100 - 1;
}

// Whether the overhead takes all: to think even for a hundredth would drain the clock to nothing,
// while an increment fills it again.
static bool NothingIsLeft() {
    return Clock.OwnTime != NO_CLOCK && SearchOptions.MoveOverhead > 0 && UsableTime() <= 0;
}

static int32_t NodesBetweenPolls(int32_t allotted) {
    if (Budget.LevelNodes > 0)
        return std::clamp(Budget.LevelNodes / LEVEL_PARTS, 1, POLL_FINE);
    if (SearchOptions.FinePolls && Limits.NodeLimit > 0)
        return POLL_FINE;
    if (allotted > LONG_SEARCH)
        return POLL_LONG;
    return allotted > MEDIUM_SEARCH ? POLL_MEDIUM : POLL_SHORT;
}

// Sets the limits of a search of the position at that game ply.
static void SetTimeLimits(int gamePly) {
    const int64_t time = TimeLeft();
    Budget.UnderClock =
        !Limits.Analysing && (Limits.FixedTime > 0 || (time != NO_CLOCK && time != INFINITE_TIME));
    if (!Budget.UnderClock)
        SetLimits(UNLIMITED_TIME, UNLIMITED_TIME);
    else if (Limits.FixedTime > 0)
        SetLimits(TimeForMove(), TimeForMove());
    else if (NothingIsLeft())
        SetLimits(LEAST_ALLOTMENT, AT_ONCE);
    else
        DivideClock(UsableTime(), MovesToControl(gamePly));
    Budget.LevelNodes = Strength.Limited && !BoardIsOnlyLookedAt() ? AllowanceOfLevel().nodes : 0;
    Budget.PollReload = NodesBetweenPolls(Budget.TimeAllotted);
}

void AllotTime() {
    SetTimeLimits(Ply);
    Budget.DrawScore = 0;
    if (Budget.UnderClock && Limits.FixedTime <= 0)
        ValueDrawByClock(TimeLeft(), UsableTime(), MovesToControl(Ply));
}

void ReallotTime() {
    SetTimeLimits(Root.gamePly);
}
