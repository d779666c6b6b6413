#include "eval/pawns/passer_race.h"

#include <algorithm>

#include "board/pawns.h"
#include "eval/pawns/pawn_structure.h"

namespace {

// Longer than any pawn needs.
constexpr int NEVER = 16;
// What a pawn needs at most, thanks to its double step.
constexpr int MOVES_FROM_HOME = 5;
// A queen that is on the board so many plies before the other pawn promotes stops it, or the king
// behind it is mated: one move is only enough for a look at it.
constexpr int DECISIVE_PLIES = 3;

} // namespace

template <Colour Us> static Bitboard Foremost() {
    Bitboard foremost = 0;
    // Only a board that was set up has pawns on the last rank; nothing is left for them to do.
    for (Bitboard pawns = PassedPawns(Us) & ~RelativeRankBB(Us, 7); pawns;) {
        const int sq = PopLowest(pawns);
        if ((PathAhead<Us>(sq) & PassedPawns(Us)) == 0)
            foremost |= SquareBit(sq);
    }
    return foremost;
}

Bitboard ForemostPassers(Colour side) {
    return side == WHITE ? Foremost<WHITE>() : Foremost<BLACK>();
}

// Moves that the pawn needs by itself, with the double step from home; NEVER when its own men are
// in the way of it. Its own king can step aside, which costs a move.
template <Colour Us> static int MovesToPromote(int sq) {
    const Bitboard path = PathAhead<Us>(sq);
    const Bitboard own = path & ColourBB[Us];
    if ((own & ~PieceBB[KING][Us]) != 0)
        return NEVER;
    return std::min(MOVES_FROM_HOME, 7 - RelativeRank(Us, sq)) + (own != 0 ? 1 : 0);
}

// Whether the own king keeps the other one off every square to come, and the pawn is safe now.
template <Colour Us> static bool Escorted(int sq) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard path = PathAhead<Us>(sq);
    if ((path & ~KingAttacks[KingSquare[Us]]) != 0)
        return false;
    const Bitboard guards = KingAttacks[KingSquare[Us]];
    return (KingAttacks[KingSquare[Them]] & SquareBit(sq) & ~guards) == 0 || SideToMove == Us;
}

// How many moves too late the enemy king comes for a pawn that promotes after that many; 0 or less
// when it comes in time.
template <Colour Us> static int MovesTooLate(int sq, int moves) {
    constexpr Colour Them = ChangeSide(Us);
    const int headStart = SideToMove == Them ? 1 : 0;
    return KingSteps(KingSquare[Them], PromotionSquare<Us>(sq)) - headStart - moves;
}

// As `UnstoppableMoves`, whatever the enemy pawns do; NEVER for none.
template <Colour Us> static int FastestMoves() {
    if (PassedPawns(Us) == 0 || PhaseUnits[ChangeSide(Us)] != 0)
        return NEVER;
    int fastest = NEVER;
    for (Bitboard pawns = Foremost<Us>(); pawns;) {
        const int sq = PopLowest(pawns);
        const int moves = MovesToPromote<Us>(sq);
        if (moves < fastest && (MovesTooLate<Us>(sq, moves) > 0 || Escorted<Us>(sq)))
            fastest = moves;
    }
    return fastest;
}

// By how many plies a pawn of Us that needs `ours` moves promotes later than one that needs
// `theirs`.
template <Colour Us> static int PliesLater(int ours, int theirs) {
    return 2 * (ours - theirs) + (SideToMove == Us ? -1 : 1);
}

// Whether the other side, though its king cannot stop our pawn in time, queens about as soon. A
// step of its pawn that our king must answer brings its own king no nearer to ours; only where that
// king is near enough to support the pawn does ours come for nothing.
template <Colour Us> static bool Answered(int ours) {
    constexpr Colour Them = ChangeSide(Us);
    if (PhaseUnits[Us] != 0)
        return false;
    for (Bitboard pawns = Foremost<Them>(); pawns;) {
        const int sq = PopLowest(pawns);
        const int moves = MovesToPromote<Them>(sq);
        if (moves == NEVER || PliesLater<Us>(ours, moves) <= -DECISIVE_PLIES)
            continue;
        const int promotion = PromotionSquare<Them>(sq);
        const int steps = KingSteps(KingSquare[Us], promotion);
        const bool supported = KingSteps(KingSquare[Them], promotion) <= steps;
        if (MovesTooLate<Them>(sq, moves) > 0 || supported)
            return true;
    }
    return false;
}

template <Colour Us> static int Unstoppable() {
    const int ours = FastestMoves<Us>();
    if (ours == NEVER)
        return 0;
    const int theirs = FastestMoves<ChangeSide(Us)>();
    if (theirs != NEVER)
        return PliesLater<Us>(ours, theirs) >= DECISIVE_PLIES ? 0 : ours;
    return Answered<Us>(ours) ? 0 : ours;
}

int UnstoppableMoves(Colour side) {
    return side == WHITE ? Unstoppable<WHITE>() : Unstoppable<BLACK>();
}
