#include "search/limits.h"

constinit GameClock Clock;
constinit SearchLimits Limits;
constinit SearchSettings SearchOptions;

bool BoardIsOnlyLookedAt() {
    return Limits.Analysing || SearchOptions.AnalyseMode || Clock.OwnTime == INFINITE_TIME;
}

void AnswerByClock() {
    Clock.PlayByBaseTime = true;
    if (Clock.OwnTime == INFINITE_TIME)
        Clock.OwnTime = NO_CLOCK;
}
