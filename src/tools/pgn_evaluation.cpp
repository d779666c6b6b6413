#include "tools/pgn_evaluation.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "board/fen.h"
#include "board/position.h"
#include "eval/endings/endings.h"
#include "eval/evaluate.h"
#include "eval/material/material.h"
#include "platform/files.h"
#include "tools/pgn_game.h"
#include "tools/static_score.h"

namespace {

constexpr const char* TABLE_FILE = "c:\\work\\my_eval.csv";

// Openings are not what is to be tuned.
constexpr int32_t FIRST_PLY = 10;
// A score of 0 in spite of so much material is a draw that the evaluation knows.
constexpr int32_t KNOWN_DRAW_BALANCE = 250;

} // namespace

// Captures, en passant too, and promotions.
static bool ChangesMaterial(Move move) {
    return move != NO_MOVE && !IsQuiet(move);
}

// What has just been taken may be taken back: a position between two changes of material says
// nothing, one right after the last says most.
static bool IsSettled(const PgnGame& game) {
    return game.ply >= FIRST_PLY && !ChangesMaterial(game.move) && ChangesMaterial(LastMove());
}

// The evaluation knows the outcome of the ending, and tells of no terms.
static bool OutcomeIsKnown() {
    return (PhaseUnits[WHITE] < ENDING_UNITS || PhaseUnits[BLACK] < ENDING_UNITS) &&
           EvaluateEnding();
}

static int32_t MaterialFor(Colour side) {
    return side == BLACK ? Figures.MaterialScore : -Figures.MaterialScore;
}

// Faded like the score. Truncates toward zero.
static int32_t ScaledMaterialFor(Colour side) {
    return int32_t(int64_t{MaterialFor(side)} * Figures.AuxScore / FULL_AUX_SCORE);
}

static bool IsWorthExporting(int32_t score) {
    if (OutcomeIsKnown() || std::abs(score) > EVAL_LIMIT)
        return false;
    return score != 0 || std::abs(ScaledMaterialFor(SideToMove)) < KNOWN_DRAW_BALANCE;
}

// 0 draw, 1 won, 2 lost.
static int32_t ResultFor(Colour side, PgnResult result) {
    if (result == PGN_DRAWN)
        return 0;
    const Colour winner = result == PGN_WHITE_WON ? WHITE : BLACK;
    return side == winner ? 1 : 2;
}

static int32_t Men(Piece piece, Colour side, Bitboard squares = ~Bitboard{0}) {
    return CountBits(PieceBB[piece][side] & squares);
}

static void PrintLine(FILE* table, const PgnGame& game, int32_t score) {
    const Colour s = SideToMove;
    const Colour o = ChangeSide(s);
    std::fprintf(
        table,
        "%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%d;%s;%d;%d;%d;%d;%d;%d;%d;%d;%d\n",
        game.plyCount - game.ply, score, MaterialFor(s), score - ScaledMaterialFor(s),
        Figures.AuxScore, ResultFor(s, game.result), Men(PAWN, s), Men(BISHOP, s, LIGHT_SQUARES),
        Men(BISHOP, s, ~LIGHT_SQUARES), Men(KNIGHT, s), Men(ROOK, s), Men(QUEEN, s), Men(PAWN, o),
        Men(BISHOP, o, LIGHT_SQUARES), Men(BISHOP, o, ~LIGHT_SQUARES), Men(KNIGHT, o), Men(ROOK, o),
        Men(QUEEN, o), WriteFen().c_str(), CurrentMaterial().currentPhase,
        Figures.KingAttackScore[s], Figures.Danger[s], Figures.KingAttackers[s],
        Figures.shelter_penalty[s], Figures.KingAttackScore[o], Figures.Danger[o],
        Figures.KingAttackers[o], Figures.shelter_penalty[o]);
}

static void ConsiderPosition(const PgnGame& game) {
    if (!IsSettled(game))
        return;
    const int32_t score = StaticScore();
    if (!IsWorthExporting(score))
        return;
    // Opened anew for each line, so that a run that is broken off keeps all its lines.
    FILE* const table = OpenFile(TABLE_FILE, "a");
    if (table == nullptr)
        return;
    PrintLine(table, game, score);
    std::fclose(table);
}

static void EvaluateGame(PgnReader& reader, PgnGame& game) {
    for (;;) {
        switch (PgnNextMove(reader, game)) {
        case PgnStep::MOVE:
            ConsiderPosition(game);
            PgnPlay(game);
            break;
        case PgnStep::GAME_END:
            return;
        case PgnStep::UNKNOWN_MOVE:
            std::printf("\nCan't recognize: %s...\n", game.moveText);
            return;
        case PgnStep::AMBIGUOUS_MOVE:
            std::printf("\nAmbigous move: %s...\n", game.moveText);
            return;
        }
    }
}

void PgnEvaluate(const char* path) {
    const auto reader = std::make_unique<PgnReader>();
    if (!PgnOpen(*reader, path)) {
        std::printf("Error opening file %s...\n", path);
        std::fflush(stdout);
        return;
    }
    PgnGame game;
    while (PgnNextGame(*reader, game)) {
        EvaluateGame(*reader, game);
        std::printf("Processed %d games...\r", int(game.number));
        std::fflush(stdout);
    }
    PgnClose(*reader);
    // A null move cannot be taken back as moves are: here a game would begin.
    SetupPly = Ply;
}
