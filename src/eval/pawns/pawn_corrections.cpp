#include "eval/pawns/pawn_corrections.h"

#include <algorithm>
#include <iterator>

#include "board/position.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/term_limit.h"
#include "eval/pawns/passer_race.h"
#include "eval/pawns/pawn_hash.h"

namespace {

// Centipawns by the phase units that the opponent has left; as the last for all more.
constexpr int32_t TradeScale[] = {96, 48, 48, 48, 45, 42, 40, 40, 36, 36, 32,
                                  32, 28, 28, 24, 24, 20, 20, 16, 16, 12};

constexpr int32_t ROOK_UNITS = PiecePhaseUnits[ROOK];
constexpr int32_t TWO_MINORS_UNITS = 2 * PiecePhaseUnits[KNIGHT];

} // namespace

// `quarters` of what a pawn advantage is worth against the pieces of `opponent`.
static int32_t TradeQuarters(Colour opponent, int quarters) {
    const int32_t last = int32_t(std::size(TradeScale)) - 1;
    return (quarters * TradeScale[std::clamp(PhaseUnits[opponent], 0, last)]) >> 2;
}

int32_t PawnTradeCorrection() {
    int32_t sum = 0;
    if (Pawns.flags & PAWNS_WHITE_OUTSIDE_PASSER)
        sum -= TradeQuarters(BLACK, 3);
    else if (Pawns.flags & PAWNS_BLACK_OUTSIDE_PASSER)
        sum += TradeQuarters(WHITE, 3);
    if (Pawns.flags & PAWNS_WHITE_HEALTHY_MAJORITY)
        sum -= TradeQuarters(BLACK, 2);
    else if (Pawns.flags & PAWNS_WHITE_MAJORITY)
        sum -= TradeQuarters(BLACK, 1);
    if (Pawns.flags & PAWNS_BLACK_HEALTHY_MAJORITY)
        sum += TradeQuarters(WHITE, 2);
    else if (Pawns.flags & PAWNS_BLACK_MAJORITY)
        sum += TradeQuarters(WHITE, 1);
    return sum;
}

// Two minor pieces stop one passed pawn together, but a rook takes what they leave.
static int64_t RookAgainstMinors(Colour side) {
    const Colour opponent = ChangeSide(side);
    if (PhaseUnits[side] != ROOK_UNITS || PhaseUnits[opponent] != TWO_MINORS_UNITS ||
        PieceCount[KNIGHT][opponent] == 0)
        return 0;
    return Params.PasserCountBonus[size_t(CountBits(Pawns.PassedVector(side)))];
}

// A king stops passed pawns on adjacent files at once, but not on both wings.
static int64_t GroupsAgainstLoneKing(Colour side) {
    if (PhaseUnits[ChangeSide(side)] != 0)
        return 0;
    const unsigned files = Pawns.PassedVector(side) | Pawns.Candidates(side);
    const int groups = CountBits(files & ~(files << 1));
    return int64_t{std::max(groups - 1, 0)} * Params.PasserGroupBonus;
}

static int64_t Race(Colour side) {
    if (PhaseUnits[WHITE] != 0 || PhaseUnits[BLACK] != 0)
        return 0;
    return UnstoppableMoves(side) != 0 ? Params.PawnRaceBonus : 0;
}

static int64_t EndingBonus(Colour side) {
    return RookAgainstMinors(side) + GroupsAgainstLoneKing(side) + Race(side);
}

int32_t PawnEndingCorrection() {
    return LimitTerm(EndingBonus(BLACK) - EndingBonus(WHITE));
}
