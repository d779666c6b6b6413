#include "eval/material/material.h"

#include <algorithm>

#include "eval/parameters/parameters.h"

constinit MaterialEntry MaterialTable[MATERIAL_INVALID] = {};

namespace {

// A side cannot win without pawns, rooks and queens when its minor pieces have fewer units than
// this: two knights do not mate.
constexpr int WINNING_MINORS = 7;
// Nor does a lone bishop, and with a bishop two minor pieces do.
constexpr int WINNING_BISHOP = 4;

// Share of the phase: a minor piece counts 1, a rook 2, a queen 4, a full set of one side 12.
constexpr int FULL_SET = 12;

} // namespace

static int PhaseShare(const MenOfSide& men) {
    return men.Minors() + 2 * men.rooks + 4 * men.queens;
}

static bool CannotWin(const MenOfSide& men) {
    if (men.pawns > 0 || men.rooks > 0 || men.queens > 0)
        return false;
    return men.Units() < (men.bishops > 0 ? WINNING_BISHOP : WINNING_MINORS);
}

// Whether a king has little to fear from these men.
static bool TooWeakToAttack(int units, int queens) {
    return units <= Params.EndingPieces || (queens == 0 && units <= Params.EndingPiecesNoQueen);
}

// `phaseShare` of `full` men still there, as 256ths of what is gone, rounded to the nearest.
static int16_t Phase(int phaseShare, int full) {
    return int16_t((std::max(full - phaseShare, 0) * PHASE_RANGE + full / 2) / full);
}

static uint8_t Flags(const MenOfSide& own, const MenOfSide& opponent) {
    int flags = 0;
    if (CannotWin(own))
        flags |= MATERIAL_CANNOT_WIN;
    if (TooWeakToAttack(opponent.Units(), opponent.queens))
        flags |= MATERIAL_ENDING;
    return uint8_t(flags);
}

static MaterialEntry ComputeEntry(const MenOfSide& white, const MenOfSide& black) {
    MaterialEntry entry = {};
    entry.flags[WHITE] = Flags(white, black);
    entry.flags[BLACK] = Flags(black, white);
    entry.currentPhase = Phase(PhaseShare(white) + PhaseShare(black), 2 * FULL_SET);
    entry.whitePhase = Phase(PhaseShare(white), FULL_SET);
    entry.blackPhase = Phase(PhaseShare(black), FULL_SET);
    entry.adjustment = MaterialImbalance(white, black);
    return entry;
}

// The men that a signature stands for: 0 to 8 pawns and 0 to 2 of every piece.
static MenOfSide MenOfSignature(int index, Colour side) {
    const auto count = [=](Piece piece, int radix) {
        return index / MaterialWeight[piece][side] % radix;
    };
    return {count(PAWN, 9), count(KNIGHT, 3), count(BISHOP, 3), count(ROOK, 3), count(QUEEN, 3)};
}

MenOfSide MenOnBoard(Colour side) {
    return {PieceCount[PAWN][side], PieceCount[KNIGHT][side], PieceCount[BISHOP][side],
            PieceCount[ROOK][side], PieceCount[QUEEN][side]};
}

void InitMaterialTable() {
    for (int i = 0; i < MATERIAL_INVALID; i++)
        MaterialTable[i] = ComputeEntry(MenOfSignature(i, WHITE), MenOfSignature(i, BLACK));
}

MaterialEntry CurrentMaterial() {
    // A board that was set up with too many pawns has a signature beyond the table.
    if (MaterialIndex >= 0 && MaterialIndex < MATERIAL_INVALID)
        return MaterialTable[MaterialIndex];
    return ComputeEntry(MenOnBoard(WHITE), MenOnBoard(BLACK));
}

bool InEnding(Colour side) {
    const Colour opponent = ChangeSide(side);
    return TooWeakToAttack(PhaseUnits[opponent], PieceCount[QUEEN][opponent]);
}
