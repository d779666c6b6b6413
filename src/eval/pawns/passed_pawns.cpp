#include "eval/pawns/passed_pawns.h"

#include <algorithm>

#include "board/attackers.h"
#include "board/pawns.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/term_limit.h"
#include "eval/pawns/passer_race.h"
#include "eval/pawns/pawn_structure.h"

namespace {

// 256ths.
constexpr int64_t FULL_SCALE = 256;
// A king further away than this is just far away.
constexpr int FAR_KING = 5;

// Centipawns for the pawn's own side.
struct Worth {
    int64_t middlegame = 0;
    int64_t ending = 0;

    void Add(int64_t inMiddlegame, int64_t inEnding) {
        middlegame += inMiddlegame;
        ending += inEnding;
    }
};

} // namespace

// Guarded by a pawn, or with another passed pawn at its side that the enemy must watch as well.
template <Colour Us> static void AddCompany(int sq, Worth& worth) {
    constexpr Colour Them = ChangeSide(Us);
    if (PawnAttacks[Them][sq] & PieceBB[PAWN][Us])
        worth.Add(Params.PasserProtectedMiddlegame, Params.PasserProtectedEnding);
    // The king's moves are the squares next to it, so they reach pawns one rank apart too.
    if (KingAttacks[sq] & PassedPawns(Us) & ~FileBB(FileOf(sq)))
        worth.Add(Params.PasserConnectedMiddlegame, Params.PasserConnectedEnding);
}

// The first square of `path`, counted from its pawn, on which an enemy man stands or strikes; none
// when the way is free.
template <Colour Us> static Bitboard FirstObstacle(Bitboard path, Bitboard step) {
    constexpr Colour Them = ChangeSide(Us);
    for (Bitboard square = step; square & path; square = Ahead<Us>(square)) {
        if ((square & ColourBB[Them]) || SquareAttacked(Them, LowestSquare(square)))
            return square;
    }
    return 0;
}

// Rooks belong behind passed pawns, of either colour. Tells whether the opponent has one there:
// it strikes all the way through the pawn as it goes.
template <Colour Us> static bool AddRooksBehind(int sq, Bitboard path, Worth& worth) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard behind = FileBB(FileOf(sq)) & ~path;
    if ((behind & OrthoSliders) == 0)
        return false;
    const Bitboard sight = RookAttacks(sq) & behind;
    if (sight & PieceBB[ROOK][Us])
        worth.Add(0, Params.RookBehindPasser);
    if (sight & PieceBB[ROOK][Them])
        worth.Add(0, -int64_t{Params.EnemyRookBehindPasser});
    return (sight & OrthoSliders & ColourBB[Them]) != 0;
}

template <Colour Us> static void AddPath(int sq, Worth& worth) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard path = PathAhead<Us>(sq);
    const Bitboard step = Ahead<Us>(SquareBit(sq));
    const bool pursued = AddRooksBehind<Us>(sq, path, worth);
    if (step & ColourBB[Them]) {
        worth.Add(-int64_t{Params.PasserBlockedMiddlegame}, -int64_t{Params.PasserBlockedEnding});
        return;
    }
    if (step & ColourBB[Us])
        return;
    const Bitboard obstacle = pursued ? step : FirstObstacle<Us>(path, step);
    if (obstacle == 0)
        worth.Add(Params.PasserFreePathMiddlegame, Params.PasserFreePathEnding);
    else if (obstacle != step)
        worth.Add(Params.PasserFreeStepMiddlegame, Params.PasserFreeStepEnding);
    else if (SquareAttacked(Us, LowestSquare(step)))
        worth.Add(Params.PasserGuardedStepMiddlegame, Params.PasserGuardedStepEnding);
}

template <Colour Us> static void AddKings(int sq, Worth& worth) {
    constexpr Colour Them = ChangeSide(Us);
    const int step = sq + AheadStep<Us>;
    const int64_t enemy = std::min(KingSteps(KingSquare[Them], step), FAR_KING);
    const int64_t own = std::min(KingSteps(KingSquare[Us], step), FAR_KING);
    worth.Add(0, enemy * Params.PasserEnemyKing - own * Params.PasserOwnKing);
}

template <Colour Us> static void AddPasser(int sq, Worth& worth) {
    const int rank = RelativeRank(Us, sq);
    worth.Add(Params.PasserMiddlegame[size_t(rank)], Params.PasserEnding[size_t(rank)]);
    // Far from promotion pieces and kings have all the time to come.
    const int64_t scale = Params.AdvanceScale[size_t(rank)];
    if (scale == 0)
        return;
    Worth chances;
    AddCompany<Us>(sq, chances);
    AddPath<Us>(sq, chances);
    AddKings<Us>(sq, chances);
    worth.Add(LimitTerm(chances.middlegame) * scale / FULL_SCALE,
              LimitTerm(chances.ending) * scale / FULL_SCALE);
}

template <Colour Us> static Worth WorthOfPassers() {
    Worth worth;
    if (PassedPawns(Us) == 0)
        return worth;
    for (Bitboard pawns = ForemostPassers(Us); pawns;)
        AddPasser<Us>(PopLowest(pawns), worth);
    const int moves = UnstoppableMoves(Us);
    if (moves != 0)
        worth.Add(0, Params.UnstoppablePasser - int64_t{moves} * Params.UnstoppablePerMove);
    return worth;
}

PasserTerms EvaluatePassedPawns() {
    if ((PassedPawns(WHITE) | PassedPawns(BLACK)) == 0)
        return {};
    const Worth black = WorthOfPassers<BLACK>();
    const Worth white = WorthOfPassers<WHITE>();
    return {LimitTerm(black.middlegame - white.middlegame), LimitTerm(black.ending - white.ending)};
}
