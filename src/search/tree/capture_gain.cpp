#include "search/tree/capture_gain.h"

#include <algorithm>

#include "board/piece_square.h"
#include "board/position.h"
#include "eval/evaluate.h"
#include "eval/material/material.h"
#include "eval/parameters/parameters.h"

namespace {

// Where the material table cannot count, a piece corrects the gain by what one more minor piece is
// worth, within a bound, and this.
constexpr int32_t UNCOUNTED_VICTIM = 120;
constexpr int32_t MINOR_UP_LIMIT = 10000;
// The opponent keeps fewer units than this: the capture enters an ending.
constexpr int32_t ENDING_UNITS = 6;
constexpr int32_t ENDING_GAIN = 25;
constexpr int32_t LAST_QUEEN_GAIN = 25;
constexpr int32_t PROMOTION_GAIN = 900;
// What a passed pawn is worth on each rank as its own side counts them.
constexpr int32_t PasserGain[8] = {0, 2, 2, 10, 50, 200, 400, 0};
constexpr int32_t QUEEN_TAKES_PAWN = 100;
constexpr int32_t QUEEN_MOVES = 160;

// What a capture may still lack after its gain, in centipawns, and be tried: always below the
// first; after a large gain, as that of a rook, below the second; below the third whatever it
// takes; and up to the last when the enemy king is attacked by so much.
constexpr int32_t NOTHING_MISSING = 58;
constexpr int32_t LARGE_GAIN = 478;
constexpr int32_t LARGE_GAIN_MISSING = 395;
constexpr int32_t LITTLE_MISSING = 113;
constexpr int32_t MUCH_MISSING = 183;
constexpr int32_t KING_IN_DANGER = 26;
// With fewer phase units on the other side every capture may decide the ending, unless it is as bad
// as this already.
constexpr int32_t FEW_UNITS = 10;
constexpr int32_t HOPELESS_ENDING = -498;

} // namespace

static bool InTable(int index) {
    return index >= 0 && index < MATERIAL_INVALID;
}

static int32_t UncountedGain() {
    return UNCOUNTED_VICTIM + std::clamp(Params.MinorUp, -MINOR_UP_LIMIT, MINOR_UP_LIMIT);
}

// How the imbalance changes when the victim goes.
static int32_t ImbalanceGain(Piece victim, Colour us) {
    if (MaterialIndex == MATERIAL_INVALID)
        return victim != EMPTY && victim != PAWN ? UncountedGain() : 0;
    const int without = MaterialIndex - MaterialWeight[victim][ChangeSide(us)];
    if (victim == EMPTY || !InTable(MaterialIndex) || !InTable(without))
        return 0;
    const int32_t change =
        MaterialTable[without].adjustment - MaterialTable[MaterialIndex].adjustment;
    return us == BLACK ? change : -change;
}

static bool IsPassed(Colour owner, int sq) {
    return !(PassedMask[owner][sq] & PieceBB[PAWN][ChangeSide(owner)]);
}

static int32_t PassedPawnGain(Move move, Piece victim, Colour us) {
    const Colour them = ChangeSide(us);
    int32_t gain = 0;
    if (MovingPiece(move) == PAWN && IsPassed(us, From(move)))
        gain += PasserGain[RelativeRank(us, From(move))];
    const int taken = VictimSquare(move);
    if (victim == PAWN && IsPassed(them, taken))
        gain += PasserGain[RelativeRank(them, taken)];
    return gain;
}

// The middlegame and ending values blended by the phase, truncated toward zero.
static int32_t Blend(int32_t middlegame, int32_t ending) {
    const int32_t phase = CurrentMaterial().currentPhase;
    return ((PHASE_RANGE - phase) * middlegame + phase * ending) / PHASE_RANGE;
}

// What the move changes in a table: the man's new square less its old one, and the square that the
// victim loses.
static int32_t SquareChange(const int16_t (&table)[PIECE_CODES][2][64], Move move, Piece victim) {
    const Colour us = SideToMove;
    const Piece before = MovingPiece(move);
    const Piece after = Promotion(move) != EMPTY ? Promotion(move) : before;
    return table[after][us][To(move)] - table[before][us][From(move)] +
           table[victim][ChangeSide(us)][VictimSquare(move)];
}

static int32_t SquareGain(Move move, Piece victim) {
    return Blend(SquareChange(PstA, move, victim), SquareChange(PstB, move, victim));
}

int32_t SquareGain(Move move) {
    return SquareGain(move, EMPTY);
}

int32_t CaptureGain(Move move) {
    const Colour us = SideToMove;
    const Colour them = ChangeSide(us);
    const Piece victim = IsEnPassant(move) ? PAWN : CapturedPiece(move);
    const Piece arrives = Promotion(move) != EMPTY ? Promotion(move) : MovingPiece(move);

    int32_t gain = PieceValue[victim] + ImbalanceGain(victim, us);
    if (PhaseUnits[them] - PiecePhaseUnits[victim] < ENDING_UNITS)
        gain += ENDING_GAIN;
    if (victim == QUEEN && PieceCount[QUEEN][them] == 1)
        gain += LAST_QUEEN_GAIN;
    if (Promotion(move) != EMPTY)
        gain += PROMOTION_GAIN;
    else
        gain += PassedPawnGain(move, victim, us);
    gain += SquareGain(move, victim);
    if (arrives == QUEEN)
        gain += victim == PAWN ? QUEEN_TAKES_PAWN : QUEEN_MOVES;
    return gain;
}

bool CaptureIsHopeless(Move move, int32_t alpha, int32_t standPat, int32_t attack) {
    if (Promotion(move) != EMPTY && Promotion(move) != QUEEN)
        return true;
    const Colour them = ChangeSide(SideToMove);
    const int32_t gain = CaptureGain(move);
    const int32_t missing = alpha - standPat - gain;
    if (missing < NOTHING_MISSING)
        return false;
    if (gain >= LARGE_GAIN)
        return missing >= LARGE_GAIN_MISSING;
    if (missing < LITTLE_MISSING)
        return false;
    if (PhaseUnits[them] < FEW_UNITS)
        return standPat < HOPELESS_ENDING;
    return missing >= MUCH_MISSING || attack < KING_IN_DANGER;
}
