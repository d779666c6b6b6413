#include "search/tree/ordering.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <utility>

#include "board/moves/pseudo_legal.h"
#include "search/state.h"

namespace {

// Upper limit of a history value: what rewards approach.
constexpr int32_t HISTORY_MAX = 32700;
// By depth in plies: the share of the way to the limit, or back to 0, that one reward or penalty
// goes, in 1024ths. The last entry serves all greater depths.
constexpr int HISTORY_STEPS = 16;
constexpr int HISTORY_STEP_SHIFT = 10;
constexpr int32_t HistoryStep[HISTORY_STEPS] = {0,   57,  119, 155, 181, 200, 217, 230,
                                                242, 253, 262, 271, 278, 286, 292, 298};
// What is kept of the history from one search to the next: a faint preference.
constexpr int HISTORY_AGING_SHIFT = 8;

// Beyond this many tries of a losing capture both counts are halved, so that it can change.
constexpr int32_t MAX_CAPTURE_TRIES = 64;

// By the next search the game has gone two plies on.
constexpr int KILLER_AGING_PLIES = 2;
constexpr int AGED_KILLER_PLIES = 192;
static_assert(AGED_KILLER_PLIES + KILLER_AGING_PLIES <= PLY_STATES);

} // namespace

void PickMove(int next, int end) {
    assert(0 <= next && next < end && end <= MoveStackTop);
    int best = next;
    for (int i = next + 1; i < end; i++) {
        if (MoveStack[i].score > MoveStack[best].score)
            best = i;
    }
    std::swap(MoveStack[next], MoveStack[best]);
}

void UpdateCaptureStats(Move move, Colour side, bool success) {
    const int slot = CaptureStatsIndex(move, side);
    int32_t& tries = CaptureStats.tries[slot];
    int32_t& successes = CaptureStats.successes[slot];
    if (CaptureStats.stamp[slot] != HashAge) {
        CaptureStats.stamp[slot] = HashAge;
        tries = successes = 0;
    }
    tries++;
    successes += success;
    if (tries > MAX_CAPTURE_TRIES) {
        tries >>= 1;
        successes >>= 1;
    }
}

static int32_t StepAtDepth(int32_t depth) {
    return HistoryStep[std::clamp(depth / ONE_PLY, 0, HISTORY_STEPS - 1)];
}

void RewardQuiet(Move move, int32_t depth, int slice) {
    // No node of the main search is that shallow; who sees this has found one.
    if (depth / ONE_PLY == 0)
        std::putchar('?');
    int32_t& value = HistoryTable[HistoryIndex(move, slice, SideToMove)];
    value += ((HISTORY_MAX - value) * StepAtDepth(depth)) >> HISTORY_STEP_SHIFT;
    assert(0 <= value && value <= HISTORY_MAX);

    Move(&killers)[2] = PlyStates[Running.SearchPly].killers[SideToMove];
    if (move != killers[0]) {
        killers[1] = killers[0];
        killers[0] = move;
    }
}

void PenaliseQuiet(Move move, int32_t depth, int slice) {
    int32_t& value = HistoryTable[HistoryIndex(move, slice, SideToMove)];
    value -= (value * StepAtDepth(depth)) >> HISTORY_STEP_SHIFT;
}

void RememberEvasion(Move move) {
    if (Ply == 0)
        return;
    EvasionReply[EvasionReplyIndex(LastMove(), KingSquare[SideToMove], SideToMove)] = move;
}

bool KillerFits(Move move) {
    if (IsCastling(move))
        return IsPseudoLegal(move);
    const Bitboard from = SquareBit(From(move));
    const Bitboard to = SquareBit(To(move));
    const Bitboard own = ColourBB[SideToMove];
    return Board[From(move)] == MovingPiece(move) && Board[To(move)] == CapturedPiece(move) &&
           (own & from) && !(own & to) && !(Between[From(move)][To(move)] & Occupied());
}

void AgeOrdering(bool keep) {
    if (keep) {
        for (int32_t& value : HistoryTable)
            value >>= HISTORY_AGING_SHIFT;
    } else {
        ClearHistory();
    }
    for (int ply = 0; ply < AGED_KILLER_PLIES; ply++) {
        const PlyState& later = PlyStates[ply + KILLER_AGING_PLIES];
        for (const Colour side : {WHITE, BLACK})
            std::copy_n(later.killers[side], 2, PlyStates[ply].killers[side]);
    }
}
