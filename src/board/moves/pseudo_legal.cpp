#include "board/moves/pseudo_legal.h"

#include "board/attackers.h"
#include "board/pawns.h"

template <Colour Us> static bool CastlingFits(Move move) {
    constexpr Colour Them = ChangeSide(Us);
    constexpr int king = KingHome(Us);
    if (From(move) != king || (move & CAPTURE_OR_PROMOTION))
        return false;
    const bool toShort = To(move) == king + 2;
    const int right = toShort ? ShortRight(Us) : LongRight(Us);
    const int rook = toShort ? king + 3 : king - 4;
    const int passed = toShort ? king + 1 : king - 1;
    return (CastleRights & right) && !(Between[king][rook] & Occupied()) &&
           !SquareAttacked(Them, passed) && !SquareAttacked(Them, To(move));
}

template <Colour Us> static bool EnPassantFits(Move move) {
    return (EnPassantTakers(Us) & SquareBit(From(move))) != 0 &&
           To(move) == To(LastMove()) + AheadStep<Us> && !(move & CAPTURE_OR_PROMOTION);
}

template <Colour Us> static bool PawnMoveFits(Move move) {
    const int from = From(move);
    const int to = To(move);
    const bool promotes = Promotion(move) != EMPTY;
    if (promotes != (RelativeRank(Us, from) == PROMOTING_RANK) || Promotion(move) == KING ||
        Promotion(move) == PAWN || Promotion(move) == 4)
        return false;
    if (IsEnPassant(move))
        return EnPassantFits<Us>(move);
    if (CapturedPiece(move) != EMPTY)
        return (PawnAttacks[Us][from] & SquareBit(to)) != 0;
    if (to == from + AheadStep<Us>)
        return true;
    return to == from + 2 * AheadStep<Us> && RelativeRank(Us, from) == DOUBLE_STEP_RANK &&
           Board[from + AheadStep<Us>] == EMPTY;
}

template <Colour Us> static bool Fits(Move move) {
    const int from = From(move);
    const int to = To(move);
    const Piece piece = MovingPiece(move);
    // The captured piece of the word must be what stands on the target, and not one of ours.
    if (!(PieceBB[piece][Us] & SquareBit(from)) || Board[to] != CapturedPiece(move) ||
        (ColourBB[Us] & SquareBit(to)))
        return false;
    if (piece == PAWN)
        return PawnMoveFits<Us>(move);
    if (Promotion(move) != EMPTY)
        return false;
    if (IsCastling(move))
        return CastlingFits<Us>(move);
    return (PieceAttacks(from, Us, piece) & SquareBit(to)) != 0;
}

bool IsPseudoLegal(Move move) {
    return SideToMove == WHITE ? Fits<WHITE>(move) : Fits<BLACK>(move);
}
