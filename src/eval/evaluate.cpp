#include "eval/evaluate.h"

#include <algorithm>
#include <optional>

#include "board/position.h"
#include "eval/endings/drawish_endings.h"
#include "eval/endings/endings.h"
#include "eval/king_safety.h"
#include "eval/material/material.h"
#include "eval/pawns/passed_pawns.h"
#include "eval/pawns/pawn_corrections.h"
#include "eval/pawns/pawn_structure.h"
#include "eval/pieces.h"

namespace {

// Scales and phases are 256ths.
constexpr int32_t FULL_SCALE = 256;
// The score fades by FADE_PER_PLY 256ths for every ply without progress beyond the first few.
constexpr int32_t FADE_FREE_PLIES = 8;
constexpr int32_t FADE_PER_PLY = 2;
// With one pawn each, a smaller difference than this is a draw.
constexpr int32_t PAWN_ENDING_MARGIN = 100;

// The running sums, centipawns from Black's view.
struct Sums {
    int32_t balance = 0; // counts the same at all times
    int32_t middlegame = 0;
    int32_t ending = 0;
    int32_t kingSafety[2] = {}; // of each side's king, still from Black's view
    int32_t endingOnly[2] = {}; // of each side, from its own view

    int32_t Blended() const {
        return BlendByPhase(middlegame, ending);
    }
};

} // namespace

// Takes phase, endings and imbalance from the material entry; the balance is Black's less White's.
static void EvaluateMaterial() {
    const MaterialEntry material = CurrentMaterial();
    Figures.current_phase = material.currentPhase;
    Figures.white_phase = material.whitePhase;
    Figures.black_phase = material.blackPhase;
    Figures.EndingFlag[WHITE] = (material.flags[WHITE] & MATERIAL_ENDING) != 0;
    Figures.EndingFlag[BLACK] = (material.flags[BLACK] & MATERIAL_ENDING) != 0;
    Figures.MaterialScore = Material[BLACK] - Material[WHITE] + material.adjustment;
}

static void AddPawns(Sums& sums) {
    PawnProbe();
    for (const Colour side : {WHITE, BLACK})
        Figures.passed[side] = PassedPawns(side);
    const PasserTerms passers = EvaluatePassedPawns();
    sums.middlegame += Pawns.middlegame + passers.middlegame;
    sums.ending += Pawns.ending + passers.ending;
    sums.balance += PawnTradeCorrection() + PawnEndingCorrection();
}

// A pawn each and little between them: there will be a new queen on both sides or none.
static bool IsDrawnPawnEnding(const Sums& sums) {
    return Material[WHITE] == PieceValue[PAWN] && Material[BLACK] == PieceValue[PAWN] &&
           std::abs(sums.balance + sums.Blended()) <= PAWN_ENDING_MARGIN;
}

// How safe the king of the side is behind its pawns. A weak shelter makes the opponent hopeful.
static void AddShelter(Colour side, Sums& sums) {
    if (Figures.EndingFlag[side])
        return;
    const int32_t shelter = KingShelter(side);
    sums.kingSafety[side] += side == BLACK ? shelter : -shelter;
    if (shelter < 0)
        Figures.optimism[ChangeSide(side)] -= shelter;
}

// In an ending too: few pieces can still mate, and the phase fades what they do.
static void AddKingAttack(Colour side, Sums& sums) {
    const int32_t attack = KingAttack(side);
    Figures.KingAttackScore[side] = attack;
    sums.kingSafety[ChangeSide(side)] += side == BLACK ? attack : -attack;
    Figures.optimism[side] += attack;
}

static void AddPieces(Sums& sums) {
    const PieceTerms terms = EvaluatePieces();
    sums.middlegame += terms.middlegame;
    sums.ending += terms.ending;
    sums.endingOnly[WHITE] += terms.endingOnly[WHITE];
    sums.endingOnly[BLACK] += terms.endingOnly[BLACK];
}

// All sums as one. What a king has to fear depends on how much the other side still has.
static int32_t Total(const Sums& sums) {
    const int32_t black = Figures.black_phase * sums.endingOnly[BLACK] +
                          (FULL_SCALE - Figures.black_phase) * sums.kingSafety[WHITE];
    const int32_t white = Figures.white_phase * sums.endingOnly[WHITE] -
                          (FULL_SCALE - Figures.white_phase) * sums.kingSafety[BLACK];
    return sums.balance + sums.Blended() + black / FULL_SCALE - white / FULL_SCALE;
}

// `value` times `scale` 256ths, truncated toward zero. Wide, because the scale has no lower bound
// when nobody claims the draw for a game without progress; the search has long called it one.
static int32_t Scale(int32_t value, int32_t scale) {
    return int32_t(int64_t{value} * scale / FULL_SCALE);
}

static int32_t FiftyMoveScale() {
    return FULL_SCALE - FADE_PER_PLY * std::max(0, FiftyCount - FADE_FREE_PLIES);
}

// The right to move is worth more the more pieces there are to move, 9 to 5 centipawns, and an
// eighth of the attack that it keeps going.
static int32_t MoveBonus() {
    return 8 - ((Figures.current_phase - 1) >> 6) + (Figures.KingAttackScore[SideToMove] >> 3);
}

int32_t Evaluate() {
    // 1. Nothing is left over from another position.
    Figures = {};

    // 2. Endings whose outcome is known; then material and phase, and where the men stand.
    Figures.MaterialScore = Material[BLACK] - Material[WHITE];
    if (PhaseUnits[BLACK] < ENDING_UNITS || PhaseUnits[WHITE] < ENDING_UNITS) {
        if (const std::optional<int32_t> known = EvaluateEnding())
            return *known;
    }
    EvaluateMaterial();
    Sums sums;
    sums.balance = Figures.MaterialScore;
    sums.middlegame = PstSumA;
    sums.ending = PstSumB;

    // 3. Pawns: their structure, what they will be worth when pieces go, and those that are passed.
    AddPawns(sums);
    if (IsDrawnPawnEnding(sums))
        return 0;

    // 4. Shelters before pieces: an attack weighs more on a weak one.
    AddShelter(BLACK, sums);
    AddShelter(WHITE, sums);
    AddPieces(sums);
    AddKingAttack(BLACK, sums);
    AddKingAttack(WHITE, sums);
    int32_t total = Total(sums);

    // 5. Endings that are harder to win than they look.
    const int32_t drawish = DrawishScale(total);
    total = CapUnwinnable(Scale(total, drawish));
    Figures.AuxScore = Scale(Figures.AuxScore, drawish);

    // 6. An advantage that makes no progress is worth less.
    const int32_t fade = FiftyMoveScale();
    total = Scale(total, fade);
    Figures.AuxScore = Scale(Figures.AuxScore, fade);

    // 7. For the side to move, who has the move.
    const int32_t own = SideToMove == BLACK ? total : -total;
    return std::clamp(own + MoveBonus(), -EVAL_LIMIT, EVAL_LIMIT);
}
