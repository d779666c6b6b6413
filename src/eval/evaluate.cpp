#include "eval/evaluate.h"

#include <algorithm>

#include "eval/material.h"

constinit Colour RootSide = WHITE;
constinit int32_t current_phase = 0;
constinit int32_t white_phase = 0;
constinit int32_t black_phase = 0;
constinit int32_t optimism[2] = {};
constinit int32_t MaterialScore = 0;
constinit int32_t AuxScore = 0;
constinit uint64_t EvalMasks[4] = {};
constinit int32_t shelter_penalty[2] = {};
constinit int32_t Danger[2] = {};
constinit int32_t KingAttackScore[2] = {};

namespace {

constexpr int32_t AUX_START = 6300;
// Scales and phases are 256ths.
constexpr int32_t FULL_SCALE = 256;
// The score fades by FADE_PER_PLY 256ths for every ply without progress beyond the first few.
constexpr int32_t FADE_FREE_PLIES = 8;
constexpr int32_t FADE_PER_PLY = 2;

} // namespace

static void ResetFigures() {
    optimism[WHITE] = optimism[BLACK] = 0;
    std::fill(EvalMasks, EvalMasks + 4, 0);
    Danger[WHITE] = Danger[BLACK] = 0;
    shelter_penalty[WHITE] = shelter_penalty[BLACK] = 0;
    KingAttackScore[WHITE] = KingAttackScore[BLACK] = 0;
    AuxScore = AUX_START;
}

// Takes phase and imbalance from the material entry; the balance is Black's less White's.
static void EvaluateMaterial() {
    const MaterialEntry material = CurrentMaterial();
    current_phase = material.currentPhase;
    white_phase = material.whitePhase;
    black_phase = material.blackPhase;
    MaterialScore = Material[BLACK] - Material[WHITE] + material.adjustment;
}

// A middlegame and an ending value mixed by the phase, truncated toward zero.
static int32_t Blend(int32_t middlegame, int32_t ending) {
    return ((FULL_SCALE - current_phase) * middlegame + current_phase * ending) / FULL_SCALE;
}

// `value` times `scale` 256ths, truncated toward zero. Wide, because the scale has no lower bound
// when nobody claims the draw for a game without progress; the search has long called it one.
static int32_t Scale(int32_t value, int32_t scale) {
    return int32_t(int64_t{value} * scale / FULL_SCALE);
}

static int32_t FiftyMoveScale() {
    return FULL_SCALE - FADE_PER_PLY * std::max(0, FiftyCount - FADE_FREE_PLIES);
}

// The right to move is worth more the more pieces there are to move: 9 to 5 centipawns.
static int32_t Tempo() {
    return 8 - ((current_phase - 1) >> 6);
}

void Evaluate(int32_t& score, int32_t /*bound*/) {
    // 1. Nothing is left over from another position.
    ResetFigures();

    // 2. Material and phase.
    EvaluateMaterial();

    // 3. Where the men stand, in the middlegame and in the ending.
    int32_t total = MaterialScore + Blend(PstSumA, PstSumB);

    // 4. An advantage that makes no progress is worth less.
    const int32_t fade = FiftyMoveScale();
    total = Scale(total, fade);
    AuxScore = Scale(AuxScore, fade);

    // 5. For the side to move, who has the move.
    const int32_t own = SideToMove == BLACK ? total : -total;
    score = std::clamp(own + Tempo(), -EVAL_LIMIT, EVAL_LIMIT);
}
