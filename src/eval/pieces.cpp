#include "eval/pieces.h"

#include <algorithm>

#include "board/pawns.h"
#include "eval/control.h"
#include "eval/figures.h"
#include "eval/parameters/parameters.h"
#include "eval/side_view.h"
#include "eval/threats.h"

namespace {

constexpr Bitboard QUEEN_WING = FileBB(0) | FileBB(1) | FileBB(2);
constexpr Bitboard KING_WING = FileBB(5) | FileBB(6) | FileBB(7);

// The piece attacks this many squares where its mobility counts nothing.
constexpr int ROOK_CENTRING = 7;
constexpr int QUEEN_CENTRING = 13;
constexpr int BISHOP_CENTRING = 6;
constexpr int KNIGHT_CENTRING = 4;
// A rook with fewer squares than this may be shut in.
constexpr int SHUT_IN = 4;
// As its own side counts them, like all ranks here.
constexpr int SIXTH_RANK = 5;
constexpr int SEVENTH_RANK = 6;

} // namespace

// What is known before the pieces are gone through.
template <Colour Us> static SideView ViewOf() {
    const int king = KingSquare[Us];
    const Bitboard around = KingAttacks[king];
    SideView view;
    view.pawnAttacks = AttackedByPawns<Us>(PieceBB[PAWN][Us]);
    // The squares around the king and the next three before it.
    view.kingZone = around | Ahead<Us>(around);
    view.kingLines = RookAttacks(king);
    view.kingDiagonals = BishopAttacks(king);
    return view;
}

// Takes in what a piece attacks, and how much it weighs when that is near the enemy king.
template <Colour Us>
static void NoteAttacks(SideView& us, const SideView& them, Bitboard attacks, int32_t weight) {
    us.attacks |= attacks;
    const Bitboard near = attacks & them.kingZone;
    if (near == 0)
        return;
    Figures.KingAttackers[Us]++;
    Figures.Danger[Us] += weight + Params.DangerPerSquare * CountBits(near);
}

// A knight or bishop: best near its king, whom it guards, and sheltered by a pawn before it.
template <Colour Us> static void EvaluateMinor(SideView& us, int sq) {
    us.Add(-KingSteps(KingSquare[Us], sq), Params.MinorFromKingMiddlegame,
           Params.MinorFromKingEnding);
    if (Ahead<Us>(SquareBit(sq)) & (PieceBB[PAWN][WHITE] | PieceBB[PAWN][BLACK]))
        us.Add(Params.MinorBehindPawnMiddlegame, Params.MinorBehindPawnEnding);
}

// A square in the enemy's half that no pawn of his can ever attack.
template <Colour Us> static bool IsOutpost(int sq) {
    constexpr Colour Them = ChangeSide(Us);
    constexpr Bitboard ranks =
        RelativeRankBB(Us, 3) | RelativeRankBB(Us, 4) | RelativeRankBB(Us, 5);
    const Bitboard attackers = PassedMask[Us][sq] & ~FileBB(FileOf(sq)) & PieceBB[PAWN][Them];
    return (SquareBit(sq) & ranks) && attackers == 0;
}

template <Colour Us> static void EvaluateKnights(SideView& us, const SideView& them) {
    for (Bitboard knights = PieceBB[KNIGHT][Us]; knights;) {
        const int sq = PopLowest(knights);
        const Bitboard attacks = KnightAttacks[sq];
        us.knightAttacks |= attacks;
        EvaluateMinor<Us>(us, sq);
        NoteAttacks<Us>(us, them, attacks, Params.KnightDanger);
        const int n = CountBits(attacks & ~ColourBB[Us] & ~them.pawnAttacks) - KNIGHT_CENTRING;
        us.Add(n * Params.KnightMobilityMiddlegame, n * Params.KnightMobilityEnding);
        if (IsOutpost<Us>(sq)) {
            const bool guarded = us.pawnAttacks & SquareBit(sq);
            us.Add(guarded ? Params.GuardedKnightOutpostMiddlegame : Params.KnightOutpostMiddlegame,
                   guarded ? Params.GuardedKnightOutpostEnding : Params.KnightOutpostEnding);
        }
    }
}

// A bishop that has taken the pawn before an enemy rook's and cannot come back.
template <Colour Us> static bool IsTrappedBishop(int sq) {
    constexpr Colour Them = ChangeSide(Us);
    const int file = FileOf(sq);
    if ((file != 0 && file != 7) || RelativeRank(Us, sq) < SIXTH_RANK)
        return false;
    const int jailer = sq - AheadStep<Us> + (file == 0 ? 1 : -1);
    return (PieceBB[PAWN][Them] & SquareBit(jailer)) != 0;
}

template <Colour Us> static void EvaluateBishops(SideView& us, const SideView& them) {
    const Bitboard bishops = PieceBB[BISHOP][Us];
    const Bitboard empty = ~Occupied();
    for (Bitboard left = bishops; left;) {
        const int sq = PopLowest(left);
        const Bitboard attacks = BishopAttacks(sq);
        us.bishopAttacks |= attacks;
        EvaluateMinor<Us>(us, sq);
        NoteAttacks<Us>(us, them, attacks, Params.BishopDanger);
        const int n = CountBits(attacks & empty) - BISHOP_CENTRING;
        us.Add(n * Params.BishopMobilityMiddlegame, n * Params.BishopMobilityEnding);
        us.Add(-CountBits(PieceBB[PAWN][Us] & SquaresLike(sq)), Params.BadBishopMiddlegame,
               Params.BadBishopEnding);
        if (IsOutpost<Us>(sq) && (us.pawnAttacks & SquareBit(sq)))
            us.Add(Params.BishopOutpostMiddlegame, Params.BishopOutpostEnding);
        if (IsTrappedBishop<Us>(sq))
            us.Add(-Params.TrappedBishop, -Params.TrappedBishop);
    }
    if ((bishops & LIGHT_SQUARES) && (bishops & ~LIGHT_SQUARES))
        us.Add(Params.BishopPairMiddlegame, Params.BishopPairEnding);
    // From afar it stops pawns on one wing and helps those on the other.
    const Bitboard pawns = PieceBB[PAWN][WHITE] | PieceBB[PAWN][BLACK];
    if (bishops && (pawns & QUEEN_WING) && (pawns & KING_WING))
        us.endingOnly += Params.BishopOnBothWings;
}

// A rook in the corner behind its own king, which has lost the right to castle.
template <Colour Us> static bool IsShutIn(int sq, int mobility) {
    constexpr int rights = ShortRight(Us) | LongRight(Us);
    const int king = KingSquare[Us];
    if (mobility >= SHUT_IN || (CastleRights & rights) || RelativeRank(Us, king) != 0 ||
        RelativeRank(Us, sq) > 1)
        return false;
    return FileOf(king) >= 4 ? FileOf(sq) > FileOf(king) : FileOf(sq) < FileOf(king);
}

template <Colour Us> static void EvaluateRookFile(SideView& us, int sq) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard file = FileBB(FileOf(sq));
    if (PieceBB[PAWN][Us] & file)
        return;
    if (PieceBB[PAWN][Them] & file)
        us.Add(Params.RookHalfOpenMiddlegame, Params.RookHalfOpenEnding);
    else
        us.Add(Params.RookOpenMiddlegame, Params.RookOpenEnding);
}

// On the seventh rank there are pawns to win or a king to shut in.
template <Colour Us> static bool SeventhRankPays() {
    constexpr Colour Them = ChangeSide(Us);
    return RelativeRank(Us, KingSquare[Them]) == 7 ||
           (PieceBB[PAWN][Them] & RelativeRankBB(Us, SEVENTH_RANK));
}

template <Colour Us> static void EvaluateRooks(SideView& us, const SideView& them) {
    for (Bitboard rooks = PieceBB[ROOK][Us]; rooks;) {
        const int sq = PopLowest(rooks);
        const Bitboard attacks = RookAttacks(sq);
        us.rookAttacks |= attacks;
        NoteAttacks<Us>(us, them, attacks, Params.RookDanger);
        const int mobility = CountBits(attacks & ~ColourBB[Us]);
        const int n = mobility - ROOK_CENTRING;
        us.Add(n * Params.RookMobilityMiddlegame, n * Params.RookMobilityEnding);
        EvaluateRookFile<Us>(us, sq);
        if (RelativeRank(Us, sq) == SEVENTH_RANK && SeventhRankPays<Us>())
            us.Add(Params.RookSeventhMiddlegame, Params.RookSeventhEnding);
        if (IsShutIn<Us>(sq, mobility))
            us.Add(-Params.ShutInRook, 0);
    }
}

template <Colour Us> static void EvaluateQueens(SideView& us, const SideView& them) {
    for (Bitboard queens = PieceBB[QUEEN][Us]; queens;) {
        const int sq = PopLowest(queens);
        const Bitboard attacks = QueenAttacks(sq);
        us.queenAttacks |= attacks;
        NoteAttacks<Us>(us, them, attacks, Params.QueenDanger);
        const int n = CountBits(attacks & ~ColourBB[Us]) - QUEEN_CENTRING;
        us.Add(n * Params.QueenMobilityMiddlegame, n * Params.QueenMobilityEnding);
        if (RelativeRank(Us, sq) == SEVENTH_RANK && SeventhRankPays<Us>())
            us.Add(Params.QueenSeventhMiddlegame, Params.QueenSeventhEnding);
    }
}

// What the attack on the king gains from squares that nobody else guards, from checks that cost
// nothing and from pawns that storm ahead.
template <Colour Us> static void AddDanger(const SideView& us, const SideView& them) {
    constexpr Colour Them = ChangeSide(Us);
    if (Figures.KingAttackers[Us] == 0)
        return;
    const int king = KingSquare[Them];
    const Bitboard around = KingAttacks[king];
    const Bitboard weak = around & us.attacks & ~them.attacks;
    int32_t danger = Params.DangerPerWeakSquare * CountBits(weak);

    const Bitboard safe = ~ColourBB[Us] & ~them.attacks & ~around;
    const Bitboard lines = them.kingLines;
    const Bitboard diagonals = them.kingDiagonals;
    // A queen may also check at close quarters when another man guards it there.
    const Bitboard guarded =
        weak & (us.knightAttacks | us.bishopAttacks | us.rookAttacks | us.pawnAttacks);
    const Bitboard queenSafe = safe | (guarded & ~ColourBB[Us]);
    if ((lines | diagonals) & us.queenAttacks & queenSafe)
        danger += Params.QueenCheckDanger;
    if (lines & us.rookAttacks & safe)
        danger += Params.RookCheckDanger;
    if (diagonals & us.bishopAttacks & safe)
        danger += Params.BishopCheckDanger;
    if (KnightAttacks[king] & us.knightAttacks & safe)
        danger += Params.KnightCheckDanger;

    const Bitboard file = FileBB(FileOf(king));
    // On the fifth rank, and twice as much on the sixth.
    const Bitboard storm = PieceBB[PAWN][Us] & (file | SquaresBeside(file));
    danger += Params.StormDanger * CountBits(storm & RelativeRankBB(Us, 4)) +
              2 * Params.StormDanger * CountBits(storm & RelativeRankBB(Us, 5));
    Figures.Danger[Us] += danger;
}

template <Colour Us> static void EvaluateSide(SideView& us, const SideView& them) {
    EvaluateKnights<Us>(us, them);
    EvaluateBishops<Us>(us, them);
    EvaluateRooks<Us>(us, them);
    EvaluateQueens<Us>(us, them);
    us.attacks |= us.pawnAttacks;
}

PieceTerms EvaluatePieces() {
    SideView white = ViewOf<WHITE>();
    SideView black = ViewOf<BLACK>();
    EvaluateSide<WHITE>(white, black);
    EvaluateSide<BLACK>(black, white);
    AddDanger<WHITE>(white, black);
    AddDanger<BLACK>(black, white);
    EvaluateThreats(white, black);
    EvaluateControl(white, black);
    Figures.attacks[WHITE] = white.attacks;
    Figures.attacks[BLACK] = black.attacks;
    PieceTerms terms;
    terms.middlegame = black.middlegame - white.middlegame;
    terms.ending = black.ending - white.ending;
    terms.endingOnly[WHITE] = white.endingOnly;
    terms.endingOnly[BLACK] = black.endingOnly;
    return terms;
}
