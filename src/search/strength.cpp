#include "search/strength.h"

#include <algorithm>
#include <iterator>

#include "search/driver_state.h"
#include "search/limits.h"
#include "search/state.h"

constinit PlayStrength Strength;

namespace {

struct Level {
    int32_t elo;
    Allowance allows;
};

// Levels between two rows lie between them in everything. The first iteration, which is always
// searched to its end, sees short tricks already: below 1800 it is the slips that make the
// difference. In games between them rows are about 270 apart: engines of one kind punish each
// other's faults more surely than others would.
constexpr Level Levels[] = {
    {800, {1, 100, 150, 1}},    {1000, {1, 85, 127, 2}},     {1200, {1, 65, 105, 3}},
    {1400, {1, 40, 85, 4}},     {1600, {200, 10, 65, 6}},    {1800, {1500, 0, 50, 8}},
    {2000, {4400, 0, 50, 10}},  {2200, {10500, 0, 50, 12}},  {2400, {26000, 0, 50, 15}},
    {2600, {70000, 0, 50, 20}}, {2800, {220000, 0, 50, 40}},
};
static_assert(Levels[0].elo == LEAST_ELO && std::end(Levels)[-1].elo == MOST_ELO);

} // namespace

// The scores of one level say nothing about the game to another.
static void Change(const PlayStrength& strength) {
    if (strength.Limited != Strength.Limited || strength.Elo != Strength.Elo)
        Past.RecentSearchCount = 0;
    Strength = strength;
}

void PlayAtLevel(int32_t elo) {
    Change({true, std::clamp(elo, LEAST_ELO, MOST_ELO)});
}

void PlayAtFullStrength() {
    Change({false, Strength.Elo});
}

Allowance AllowanceOfLevel() {
    const Level* const above = std::find_if(std::begin(Levels) + 1, std::end(Levels) - 1,
                                            [](const Level& l) { return l.elo >= Strength.Elo; });
    const Level& low = above[-1];
    const auto between = [&](int32_t Allowance::*figure) {
        const int64_t rise = above->allows.*figure - low.allows.*figure;
        return int32_t(low.allows.*figure +
                       rise * (Strength.Elo - low.elo) / (above->elo - low.elo));
    };
    return {between(&Allowance::nodes), between(&Allowance::slips), between(&Allowance::slipBound),
            between(&Allowance::bookMoves)};
}

bool HeldToLevel() {
    return Budget.LevelNodes > 0 && !Limits.GoPonder;
}
