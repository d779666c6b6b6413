#include "search/tree/extensions.h"

#include "board/attackers.h"
#include "board/exchange.h"
#include "board/moves/make_move.h"
#include "search/state.h"

namespace {

// Indexed by whether the window is open.
constexpr int32_t FullExtension[2] = {ONE_PLY / 2, ONE_PLY};
constexpr int32_t RecaptureExtension[2] = {22, 45};

} // namespace

// Only kings and pawns remain once the last piece is taken: such an ending must be seen clearly.
static bool TakesLastPiece(Move move) {
    const int units = PiecePhaseUnits[CapturedPiece(move)];
    return units != 0 && Promotion(move) == EMPTY && PhaseUnits[WHITE] + PhaseUnits[BLACK] == units;
}

// Takes back on the square of the last capture a piece of the same value.
static bool Recaptures(Move move) {
    const Move last = LastMove();
    const Piece taken = CapturedPiece(last);
    return taken != EMPTY && CapturedPiece(move) != EMPTY && To(move) == To(last) &&
           PieceValue[taken] == PieceValue[CapturedPiece(move)];
}

// A passed pawn goes to the sixth rank or beyond and cannot simply be taken.
static bool PushesPasser(Move move, Colour us) {
    return MovingPiece(move) == PAWN && RelativeRank(us, To(move)) >= 5 &&
           !(PassedMask[us][From(move)] & PieceBB[PAWN][ChangeSide(us)]) && SafeExchange(move);
}

// Pieces of the enemy that the man of `us` on the square could win if it were to move again.
static int PiecesToWin(int from, Colour us) {
    const Piece piece = Board[from];
    const Colour them = ChangeSide(us);
    Bitboard targets = PieceAttacks(from, us, piece) & ColourBB[them] & ~PieceBB[PAWN][them];
    int won = 0;
    while (targets) {
        const int target = PopLowest(targets);
        if (SafeExchange(target, from, piece, Board[target], EMPTY))
            won++;
    }
    return won;
}

// Whether there are two pieces that the man may come to attack: those seen from its new square as
// the board stands now, and those that it will see through the square that it leaves.
static bool MayAttackTwo(Move move, Colour us) {
    const int from = From(move);
    const int to = To(move);
    const Piece piece = Promotion(move) != EMPTY ? Promotion(move) : MovingPiece(move);
    const Colour them = ChangeSide(us);
    const Bitboard targets = ColourBB[them] & ~PieceBB[PAWN][them];
    const Bitboard beyond = Ray[DirectionTo[to][from]][from];
    Bitboard attacked = PieceAttacks(to, us, piece) & targets;
    if (beyond & targets)
        attacked |= PieceAttacks(from, us, piece) & beyond & targets;
    return CountBits(attacked) >= 2;
}

// The man attacks from its new square two or more pieces that it could win. That is asked on the
// board after the move: the man supports nothing from the square that it has left. Pawns are no
// targets: counting them costs half as many nodes again and made the engine weaker. A man that is
// lost where it goes wins nothing.
static bool Forks(Move move, Colour us) {
    if (!MayAttackTwo(move, us) || !SafeExchange(move))
        return false;
    MakeMove(move, true);
    MakeNullMove();
    const bool forks = PiecesToWin(To(move), us) >= 2;
    UnmakeNullMove();
    UnmakeMove();
    return forks;
}

int32_t ExtensionOf(Move move, bool givesCheck, bool openWindow) {
    const Colour us = SideToMove;
    if (givesCheck || TakesLastPiece(move) || PushesPasser(move, us) || Forks(move, us))
        return FullExtension[openWindow];
    return Recaptures(move) ? RecaptureExtension[openWindow] : 0;
}
