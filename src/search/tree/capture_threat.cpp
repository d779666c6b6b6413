#include "search/tree/capture_threat.h"

#include "board/attackers.h"
#include "board/exchange.h"

namespace {

// No capture brings more.
constexpr int32_t LARGEST_MARGIN = 1050;
// A pawn is no target worth more than this.
constexpr int32_t PAWN_MARGIN = 100;
// The king captures for nothing: it cannot be taken back.
constexpr int AttackerValue[PIECE_CODES] = {0, 0, 300, 100, 0, 500, 300, 900};

} // namespace

static bool ManThreatens(int from, Piece piece, Bitboard targets, int32_t margin) {
    while (targets) {
        const int to = PopLowest(targets);
        const int value = PieceValue[Board[to]];
        const int own = AttackerValue[piece];
        if (value - own > margin)
            return true;
        if (value < own && value > margin && SafeExchange(to, from, piece, Board[to], EMPTY))
            return true;
    }
    return false;
}

bool CaptureThreatens(int32_t margin) {
    if (margin > LARGEST_MARGIN)
        return false;
    const Colour us = SideToMove;
    const Colour them = ChangeSide(us);
    Bitboard targets = ColourBB[them];
    if (margin > PAWN_MARGIN)
        targets &= ~PieceBB[PAWN][them];
    for (Bitboard men = ColourBB[us]; men;) {
        const int from = PopLowest(men);
        const Bitboard attacked = PieceAttacks(from, us, Board[from]) & targets;
        if (attacked && ManThreatens(from, Board[from], attacked, margin))
            return true;
    }
    return false;
}
