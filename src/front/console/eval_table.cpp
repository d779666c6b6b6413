#include "front/console/eval_table.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "board/position.h"
#include "eval/eval_cache.h"
#include "eval/evaluate.h"
#include "eval/figures.h"
#include "eval/king_safety.h"
#include "eval/pawns/passed_pawns.h"
#include "eval/pawns/pawn_corrections.h"
#include "eval/pawns/pawn_structure.h"
#include "eval/pieces.h"

namespace {

constexpr int32_t FULL_SCALE = 256;

} // namespace

// What each side has, in centipawns.
static void PrintRow(const char* name, int32_t white, int32_t black) {
    std::printf("  %-22s %c%7.2f %c%7.2f\n", name, white > black ? '>' : ' ', white / 100.0,
                black > white ? '>' : ' ', black / 100.0);
}

// A balance from Black's view is shown at the side that it favours.
static void PrintBalance(const char* name, int32_t balance) {
    PrintRow(name, std::max(-balance, 0), std::max(balance, 0));
}

// What counts the more, the more men a side still has.
static int32_t WithMenOf(Colour side, int32_t value) {
    const int32_t phase = side == WHITE ? Figures.white_phase : Figures.black_phase;
    return value * (FULL_SCALE - phase) / FULL_SCALE;
}

static int32_t Shelter(Colour side) {
    return Figures.EndingFlag[side] ? 0 : WithMenOf(ChangeSide(side), KingShelter(side));
}

static void PrintPieces() {
    const PieceTerms terms = EvaluatePieces();
    const int32_t endingOnly = Figures.black_phase * terms.endingOnly[BLACK] / FULL_SCALE -
                               Figures.white_phase * terms.endingOnly[WHITE] / FULL_SCALE;
    PrintBalance("Pieces", BlendByPhase(terms.middlegame, terms.ending) + endingOnly);
}

static void PrintTerms() {
    PrintRow("Material", Material[WHITE], Material[BLACK]);
    PrintBalance("Imbalance", Figures.MaterialScore - (Material[BLACK] - Material[WHITE]));
    PrintBalance("Where the men stand", BlendByPhase(PstSumA, PstSumB));
    PawnProbe();
    PrintBalance("Pawn structure", BlendByPhase(Pawns.middlegame, Pawns.ending));
    const PasserTerms passers = EvaluatePassedPawns();
    PrintBalance("Passed pawns", BlendByPhase(passers.middlegame, passers.ending));
    PrintBalance("Trades and pawn ending", PawnTradeCorrection() + PawnEndingCorrection());
    PrintRow("Shelter of the king", Shelter(WHITE), Shelter(BLACK));
    PrintRow("Attack on the king", WithMenOf(WHITE, Figures.KingAttackScore[WHITE]),
             WithMenOf(BLACK, Figures.KingAttackScore[BLACK]));
    PrintPieces();
}

void PrintEvalTable() {
    SetRootSide(SideToMove);
    const int32_t score = Evaluate();
    const int32_t white = SideToMove == WHITE ? score : -score;
    std::printf("  %-22s %8s %8s\n", "Pawns", "White", "Black");
    PrintTerms();
    std::printf("  %-22s %+8.2f for White, all told\n", "Score", white / 100.0);
    std::fflush(stdout);
}
