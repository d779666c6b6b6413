#include "eval/threats.h"

#include "board/pawns.h"
#include "board/position.h"
#include "eval/parameters/parameters.h"

// Pieces that lesser ones attack, or that nobody guards.
template <Colour Us> static void AddWinning(SideView& us, const SideView& them) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard minors = PieceBB[KNIGHT][Them] | PieceBB[BISHOP][Them];
    const Bitboard majors = PieceBB[ROOK][Them] | PieceBB[QUEEN][Them];
    us.Add(CountBits(us.pawnAttacks & (minors | majors)), Params.PawnThreatMiddlegame,
           Params.PawnThreatEnding);
    us.Add(CountBits((us.knightAttacks | us.bishopAttacks) & majors), Params.MinorThreatMiddlegame,
           Params.MinorThreatEnding);
    us.Add(CountBits(us.rookAttacks & PieceBB[QUEEN][Them]), Params.RookThreatMiddlegame,
           Params.RookThreatEnding);
    const Bitboard unguarded = us.attacks & ~them.attacks & ~KingAttacks[KingSquare[Them]];
    us.Add(CountBits(unguarded & (minors | majors)), Params.LoosePieceMiddlegame,
           Params.LoosePieceEnding);
    const Bitboard byKing = KingAttacks[KingSquare[Us]] & ~them.attacks;
    us.Add(CountBits((unguarded | byKing) & PieceBB[PAWN][Them]), Params.LoosePawnMiddlegame,
           Params.LoosePawnEnding);
}

// Men that only pieces guard, whose guards are not free to go.
template <Colour Us> static void AddPressure(SideView& us, const SideView& them) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard targets = ColourBB[Them] & ~them.pawnAttacks;
    const Bitboard pawns = PieceBB[PAWN][Them] & targets;
    const Bitboard minors = (PieceBB[KNIGHT][Them] | PieceBB[BISHOP][Them]) & targets;
    const Bitboard byMinors = us.knightAttacks | us.bishopAttacks;
    us.Add(CountBits(byMinors & minors), Params.MinorOnMinorMiddlegame, Params.MinorOnMinorEnding);
    us.Add(CountBits(us.rookAttacks & minors), Params.RookOnMinorMiddlegame,
           Params.RookOnMinorEnding);
    us.Add(CountBits(byMinors & pawns), Params.MinorOnPawnMiddlegame, Params.MinorOnPawnEnding);
    us.Add(CountBits(us.rookAttacks & pawns), Params.RookOnPawnMiddlegame, Params.RookOnPawnEnding);
}

// Pieces that a pawn can attack with its next step, where it is safe or guarded.
template <Colour Us> static void AddPushes(SideView& us, const SideView& them) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard empty = ~Occupied();
    Bitboard steps = Ahead<Us>(PieceBB[PAWN][Us]) & empty;
    steps |= Ahead<Us>(steps & RelativeRankBB(Us, 2)) & empty;
    steps &= ~them.pawnAttacks & (us.attacks | ~them.attacks);
    us.Add(CountBits(AttackedByPawns<Us>(steps) & ColourBB[Them] & ~PieceBB[PAWN][Them]),
           Params.PushThreatMiddlegame, Params.PushThreatEnding);
}

// Squares from which a piece could give check, safe or not: each is a chance to gain a move.
template <Colour Us> static void AddChecks(SideView& us, const SideView& them) {
    const Bitboard free = ~ColourBB[Us];
    const Bitboard knightMoves = KnightAttacks[KingSquare[ChangeSide(Us)]];
    us.Add(CountBits((them.kingLines | them.kingDiagonals) & us.queenAttacks & free) +
               CountBits(them.kingLines & us.rookAttacks & free) +
               CountBits(them.kingDiagonals & us.bishopAttacks & free) +
               CountBits(knightMoves & us.knightAttacks & free),
           Params.CheckSquareMiddlegame, Params.CheckSquareEnding);
}

// Men that may not leave the line between their king and an enemy piece.
template <Colour Us> static void AddPins(SideView& us) {
    constexpr Colour Them = ChangeSide(Us);
    const int king = KingSquare[Them];
    Bitboard snipers =
        ColourBB[Us] & ((BishopRays[king] & DiagSliders) | (RookRays[king] & OrthoSliders));
    int pinned = 0;
    while (snipers) {
        const Bitboard barrier = Between[king][PopLowest(snipers)] & Occupied();
        if (CountBits(barrier) == 1 && (barrier & ColourBB[Them]))
            pinned++;
    }
    us.Add(pinned, Params.PinMiddlegame, Params.PinEnding);
}

template <Colour Us> static void EvaluateSide(SideView& us, const SideView& them) {
    AddWinning<Us>(us, them);
    AddPressure<Us>(us, them);
    AddPushes<Us>(us, them);
    AddChecks<Us>(us, them);
    AddPins<Us>(us);
    const Bitboard pieces = ColourBB[Us] & ~PieceBB[PAWN][Us] & ~PieceBB[KING][Us];
    us.Add(-CountBits(pieces & ~us.attacks), Params.UnguardedPieceMiddlegame,
           Params.UnguardedPieceEnding);
}

void EvaluateThreats(SideView& white, SideView& black) {
    EvaluateSide<WHITE>(white, black);
    EvaluateSide<BLACK>(black, white);
}
