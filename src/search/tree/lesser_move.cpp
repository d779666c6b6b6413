#include "search/tree/lesser_move.h"

#include <algorithm>
#include <cstdlib>

#include "board/moves/make_move.h"
#include "platform/runtime_rand.h"
#include "search/root.h"
#include "search/state.h"
#include "search/tree/quiesce.h"

// What root move `i` is worth at first sight, for the side that makes it.
static int32_t FirstSight(int i) {
    MakeMove(RootMove(i), true);
    PlyStates[Running.SearchPly].inCheck = Root.moves[i].givesCheck;
    PlyStates[Running.SearchPly].flags = 0;
    Running.PollCountdown = Budget.PollReload;
    const int32_t score = -Quiesce(-MATE, MATE);
    UnmakeMove();
    return score;
}

// A number below `limit`, which is at most 2^30.
static int32_t RandomBelow(int32_t limit) {
    const int32_t high = Rand();
    return (high << 15 | Rand()) % limit;
}

// One of the moves by those weights, not all of which are 0.
static int Draw(const int32_t* weights) {
    int32_t sum = 0;
    for (int i = 0; i < Root.count; i++)
        sum += weights[i];
    int32_t drawn = RandomBelow(sum);
    int i = 0;
    while (drawn >= weights[i])
        drawn -= weights[i++];
    return i;
}

static int LesserMove(int32_t bound, const int32_t* seen) {
    const int32_t best = *std::max_element(seen, seen + Root.count);
    int32_t weights[MAX_ROOT_MOVES];
    for (int i = 0; i < Root.count; i++)
        weights[i] = std::max(seen[i] - best + bound + 1, 0);
    return Draw(weights);
}

void MaySlip(const Allowance& allowance) {
    if (Root.count < 2 || std::abs(Root.moves[0].score) > MATE_BOUND ||
        RandomBelow(100) >= allowance.slips)
        return;
    int32_t seen[MAX_ROOT_MOVES];
    Running.SearchPly = 1;
    for (int i = 0; i < Root.count; i++)
        seen[i] = FirstSight(i);
    Running.SearchPly = 0;
    if (Running.StopSearch)
        return;
    const int slip = LesserMove(allowance.slipBound, seen);
    if (slip == 0 || seen[slip] < -MATE_BOUND)
        return;
    Root.moves[slip].score = std::min(seen[slip], Root.moves[0].score);
    MoveEntry(slip, 0);
}
