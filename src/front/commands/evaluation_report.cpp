#include "front/commands/evaluation_report.h"

#include <cstdio>
#include <string>

#include "board/position.h"
#include "eval/eval_cache.h"
#include "eval/evaluate.h"
#include "eval/king_safety.h"
#include "eval/material/material.h"
#include "eval/pawns/pawn_structure.h"

// A set of files as eight digits, the a-file first.
static std::string FileDigits(int files) {
    std::string digits;
    for (int file = 0; file < 8; file++)
        digits += (files >> file & 1) != 0 ? '1' : '0';
    return digits;
}

void ShowEvaluation(const CommandLine&) {
    SetRootSide(SideToMove);
    const int32_t score = Evaluate();
    PawnProbe(); // also where the evaluation had no need of it
    const Colour us = SideToMove;
    const Colour them = ChangeSide(us);
    std::printf("Heuristic = %d\n", score);
    std::printf("PassedVector[BLACK] = %s", FileDigits(Pawns.PassedVector(BLACK)).c_str());
    std::printf(" PassedVector[WHITE] = %s\n", FileDigits(Pawns.PassedVector(WHITE)).c_str());
    std::printf("current_phase = %d, black_phase = %d, white_phase = %d\n", Figures.current_phase,
                Figures.black_phase, Figures.white_phase);
    std::printf("optimism[BLACK] = %d, optimism[WHITE] = %d\n", Figures.optimism[BLACK],
                Figures.optimism[WHITE]);
    std::printf("Material[WHITE] = %d Material[BLACK] = %d EvaluateMaterial() = %d\n",
                Material[WHITE], Material[BLACK], Figures.MaterialScore);
    std::printf("ENDING(WHITE) = %d ENDING(BLACK) = %d\n", int(InEnding(WHITE)),
                int(InEnding(BLACK)));
    std::printf("black_defects_k = %d black_defects_q = %d white_defects_k = %d white_defects_q = "
                "%d\n",
                Pawns.black_defects_k, Pawns.black_defects_q, Pawns.white_defects_k,
                Pawns.white_defects_q);
    std::printf("shelter_penalty[BLACK] = %d shelter_penalty[WHITE] = %d\n",
                Figures.shelter_penalty[BLACK], Figures.shelter_penalty[WHITE]);
    std::printf("Danger[BLACK] = %d Danger[WHITE] = %d\n", Figures.Danger[BLACK],
                Figures.Danger[WHITE]);
    std::printf("Attacks[ChangeSide(SideToMove)] = %d\n", PrintedAttack(them));
    std::printf("Attacks[SideToMove] = %d\n", PrintedAttack(us));
    std::printf("Shelter[BLACK] = %d Shelter[WHITE] = %d\n", PrintedShelter(BLACK),
                PrintedShelter(WHITE));
    std::printf("Dng = %d\n", PrintedAttack(them) + PrintedShelter(them));
    std::fflush(stdout);
}
