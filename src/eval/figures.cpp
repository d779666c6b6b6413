#include "eval/figures.h"

#include <algorithm>

constinit Colour RootSide = WHITE;
constinit int32_t current_phase = 0;
constinit int32_t white_phase = 0;
constinit int32_t black_phase = 0;
constinit int32_t optimism[2] = {};
constinit int32_t MaterialScore = 0;
constinit int32_t AuxScore = 0;
constinit uint64_t EvalMasks[4] = {};
constinit int32_t EndingFlag[2] = {};
constinit int32_t shelter_penalty[2] = {};
constinit int32_t KingAttackers[2] = {};
constinit int32_t Danger[2] = {};
constinit int32_t KingAttackScore[2] = {};

static constexpr int32_t AUX_START = 6300;

void ResetFigures() {
    current_phase = white_phase = black_phase = 0;
    MaterialScore = 0;
    optimism[WHITE] = optimism[BLACK] = 0;
    std::fill(EvalMasks, EvalMasks + 4, 0);
    EndingFlag[WHITE] = EndingFlag[BLACK] = 0;
    shelter_penalty[WHITE] = shelter_penalty[BLACK] = 0;
    KingAttackers[WHITE] = KingAttackers[BLACK] = 0;
    Danger[WHITE] = Danger[BLACK] = 0;
    KingAttackScore[WHITE] = KingAttackScore[BLACK] = 0;
    AuxScore = AUX_START;
}
