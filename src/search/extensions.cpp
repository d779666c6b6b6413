#include "search/extensions.h"

#include "board/attackers.h"
#include "board/exchange.h"
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

// The man attacks from its new square two or more men that it could win.
static bool Forks(Move move, Colour us) {
    const Piece piece = MovingPiece(move);
    if (piece == KING || piece == QUEEN || Promotion(move) != EMPTY)
        return false;
    const Colour them = ChangeSide(us);
    const int to = To(move);
    Bitboard targets = PieceAttacks(to, us, piece) & ColourBB[them] & ~PieceBB[PAWN][them];
    if (CountBits(targets) < 2 || !SafeExchange(move))
        return false;
    int won = 0;
    while (targets) {
        const int target = PopLowest(targets);
        if (SafeExchange(target, to, piece, Board[target], EMPTY))
            won++;
    }
    return won >= 2;
}

int32_t ExtensionOf(Move move, bool givesCheck, bool openWindow) {
    const Colour us = SideToMove;
    if (givesCheck || TakesLastPiece(move) || PushesPasser(move, us) || Forks(move, us))
        return FullExtension[openWindow];
    return Recaptures(move) ? RecaptureExtension[openWindow] : 0;
}
