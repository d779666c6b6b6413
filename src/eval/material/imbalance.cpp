#include "eval/material/imbalance.h"

#include <algorithm>

#include "eval/parameters/parameters.h"

namespace {

// Numbers of pawns that are neither many nor few: of one side, and of both.
constexpr int USUAL_PAWNS = 5;
constexpr int USUAL_PAWNS_OF_BOTH = 10;
constexpr int PIECES_AT_START = 14;
// Unit of what pieces are worth by the number of pawns: centipawns / 16.
constexpr int PAWN_TERM_UNIT = 16;

// What one side has more than the other.
struct Surplus {
    int pawns;
    int minors;
    int rooks;
    int queens;

    // Whether just this has been exchanged, pawns apart.
    bool Is(int queensUp, int rooksUp, int minorsUp) const {
        return queens == queensUp && rooks == rooksUp && minors == minorsUp;
    }
};

} // namespace

static Surplus SurplusOf(const MenOfSide& own, const MenOfSide& opponent) {
    return {own.pawns - opponent.pawns, own.Minors() - opponent.Minors(),
            own.rooks - opponent.rooks, own.queens - opponent.queens};
}

// Pawns stand in the way of rooks and give knights their outposts. All parameters are taken wide,
// since a file may hold any number.
static int64_t ByPawns(const MenOfSide& own, const MenOfSide& opponent) {
    const int pieces[] = {own.knights, own.bishops, own.rooks, own.queens};
    const int64_t ownPawns = own.pawns - USUAL_PAWNS;
    const int64_t opponentPawns = opponent.pawns - USUAL_PAWNS;
    int64_t sum = 0;
    for (size_t i = 0; i < Params.PieceByOwnPawns.size(); i++) {
        sum += pieces[i] * (ownPawns * Params.PieceByOwnPawns[i] +
                            opponentPawns * Params.PieceByOpponentPawns[i]);
    }
    return sum;
}

// Minor pieces against pawns and rooks.
static int64_t MinorTrades(const MenOfSide& own, const MenOfSide& opponent) {
    const Surplus up = SurplusOf(own, opponent);
    const int64_t manyPawns = own.pawns + opponent.pawns - USUAL_PAWNS_OF_BOTH;
    int64_t sum = 0;
    if (up.minors >= 1)
        sum += Params.MinorUp;
    if (up.minors >= 2)
        sum += Params.SecondMinorUp;
    if (up.Is(0, 0, 1) && up.pawns <= -2) {
        sum += Params.MinorForPawns + int64_t{own.pawns} * Params.MinorForPawnsPerOwnPawn;
        if (own.queens > 0)
            sum += Params.MinorForPawnsWithQueens;
    }
    if (up.Is(0, -1, 2))
        sum += Params.TwoMinorsForRook + manyPawns * Params.TwoMinorsForRookPerPawn;
    if (up.Is(0, 1, -1)) {
        sum += Params.RookForMinor + manyPawns * Params.RookForMinorPerPawn;
        if (opponent.bishops >= 2)
            sum += Params.RookForMinorAgainstPair;
    }
    return sum;
}

// Two of a kind work better, or worse, than twice one.
static int64_t Pairs(const MenOfSide& own, const MenOfSide& opponent) {
    const int64_t manyPawns = own.pawns + opponent.pawns - USUAL_PAWNS_OF_BOTH;
    int64_t sum = 0;
    if (own.bishops >= 2)
        sum += manyPawns * Params.BishopPairPerPawn;
    if (own.knights >= 2)
        sum += Params.KnightPair;
    if (own.rooks >= 2)
        sum += Params.RookPair;
    if (own.queens > 0) {
        sum += int64_t{own.rooks} * Params.RookBesideQueen;
        sum += int64_t{own.queens - 1} * Params.SecondQueen;
    }
    return sum;
}

// Rooks and queens against anything.
static int64_t MajorTrades(const MenOfSide& own, const MenOfSide& opponent) {
    const Surplus up = SurplusOf(own, opponent);
    int64_t sum = 0;
    if (up.Is(1, -2, 0)) {
        const int64_t minors = own.Minors() + opponent.Minors();
        sum += Params.QueenForRooks + minors * Params.QueenForRooksPerMinor;
    }
    if (up.Is(1, -1, -1))
        sum += Params.QueenForRookAndMinor;
    if (up.Is(1, 0, -3))
        sum += Params.QueenForMinors;
    if (up.Is(0, 1, 0) && up.pawns <= -3)
        sum += Params.RookForPawns;
    if (own.rooks + own.queens == 0 && opponent.rooks + opponent.queens > 0)
        sum += Params.NoMajors;
    return sum;
}

// Who is ahead, in pieces and in all, gains from every exchange of pieces.
static int64_t Leadership(const MenOfSide& own, const MenOfSide& opponent) {
    const int unitsUp = own.Units() - opponent.Units();
    if (unitsUp <= 0 || unitsUp + own.pawns - opponent.pawns <= 0)
        return 0;
    const int gone = std::max(PIECES_AT_START - own.Pieces() - opponent.Pieces(), 0);
    return int64_t{gone} * Params.LeaderPerPieceGone;
}

static int64_t Trades(const MenOfSide& own, const MenOfSide& opponent) {
    return MinorTrades(own, opponent) + Pairs(own, opponent) + MajorTrades(own, opponent) +
           Leadership(own, opponent);
}

// More than the table counts is taken for the most that it counts.
size_t ImbalanceCell(const MenOfSide& white, const MenOfSide& black) {
    int index = 2 * std::min(white.queens, 1) + std::min(black.queens, 1);
    for (const int count :
         {white.rooks, white.bishops, white.knights, black.rooks, black.bishops, black.knights})
        index = 3 * index + std::min(count, 2);
    return size_t(index);
}

int16_t MaterialImbalance(const MenOfSide& white, const MenOfSide& black) {
    const int64_t byPawns = (ByPawns(black, white) - ByPawns(white, black)) / PAWN_TERM_UNIT;
    const int64_t byTrades = Trades(black, white) - Trades(white, black);
    const int64_t sum = byPawns + byTrades + Params.ImbalanceTable[ImbalanceCell(white, black)];
    return int16_t(std::clamp(sum, int64_t{INT16_MIN}, int64_t{INT16_MAX}));
}
