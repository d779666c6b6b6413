#include "board/attackers.h"

#include <cassert>

bool SquareAttacked(Colour side, int square) {
    assert(IsSquare(square));
    if (PawnAttacks[ChangeSide(side)][square] & PieceBB[PAWN][side])
        return true;
    if (KnightAttacks[square] & PieceBB[KNIGHT][side])
        return true;
    if (KingAttacks[square] & PieceBB[KING][side])
        return true;
    // The rays of the empty board spare the lookups in most positions.
    const Bitboard ortho = OrthoSliders & ColourBB[side];
    if ((RookRays[square] & ortho) && (RookAttacks(square) & ortho))
        return true;
    const Bitboard diag = DiagSliders & ColourBB[side];
    return (BishopRays[square] & diag) && (BishopAttacks(square) & diag);
}

Bitboard PieceAttacks(int square, Colour colour, int code) {
    switch (code) {
    case KING:
        return KingAttacks[square];
    case KNIGHT:
        return KnightAttacks[square];
    case PAWN:
        return PawnAttacks[colour][square];
    case ROOK:
        return RookAttacks(square);
    case BISHOP:
        return BishopAttacks(square);
    case QUEEN:
        return QueenAttacks(square);
    default:
        return 0;
    }
}

Bitboard AttackersOf(Colour side, int square) {
    Bitboard attackers = (PawnAttacks[ChangeSide(side)][square] & PieceBB[PAWN][side]) |
                         (KnightAttacks[square] & PieceBB[KNIGHT][side]) |
                         (KingAttacks[square] & PieceBB[KING][side]);
    const Bitboard ortho = OrthoSliders & ColourBB[side];
    if (RookRays[square] & ortho)
        attackers |= RookAttacks(square) & ortho;
    const Bitboard diag = DiagSliders & ColourBB[side];
    if (BishopRays[square] & diag)
        attackers |= BishopAttacks(square) & diag;
    return attackers;
}

bool InCheck(Colour side) {
    return SquareAttacked(ChangeSide(side), KingSquare[side]);
}

Bitboard SlidersBeyond(int square, Direction direction) {
    const Bitboard ray = Ray[direction][square];
    if (direction >= NORTH_EAST) {
        const Bitboard sliders = ray & DiagSliders;
        return sliders ? BishopAttacks(square) & sliders : 0;
    }
    const Bitboard sliders = ray & OrthoSliders;
    return sliders ? RookAttacks(square) & sliders : 0;
}

// Whether a slider of `attacker` stands behind the man on `from`, seen from the king on `king`,
// with nothing else between.
static bool LineOpensFrom(int king, int from, Colour attacker) {
    const Direction direction = DirectionTo[king][from];
    if (direction == NO_DIRECTION)
        return false;
    const Bitboard sliders =
        (direction >= NORTH_EAST ? DiagSliders : OrthoSliders) & ColourBB[attacker];
    if (!(Ray[direction][from] & sliders))
        return false;
    return !(Between[king][from] & Occupied()) && (SlidersBeyond(from, direction) & sliders);
}

// Whether a slider of `attacker` attacks the king on the board without the men on `gone` and with
// one on `to`: for en passant, which can empty two squares of a line at once.
static bool LineAttackAfter(int king, Colour attacker, Bitboard gone, int to) {
    const Bitboard occupied = (Occupied() & ~gone) | SquareBit(to);
    const Bitboard ortho = RookRays[king] & OrthoSliders & ColourBB[attacker];
    const Bitboard diag = BishopRays[king] & DiagSliders & ColourBB[attacker];
    for (Bitboard sliders = (ortho | diag) & ~gone; sliders;) {
        if (!(Between[king][PopLowest(sliders)] & occupied))
            return true;
    }
    return false;
}

static bool CastlingGivesCheck(Move move, int enemyKing) {
    const RookHop rook = CastlingRook(To(move));
    if (DirectionTo[rook.to][enemyKing] == NO_DIRECTION ||
        !(RookRays[rook.to] & SquareBit(enemyKing)))
        return false;
    const Bitboard occupied =
        (Occupied() & ~SquareBit(From(move)) & ~SquareBit(rook.from)) | SquareBit(To(move));
    return !(Between[rook.to][enemyKing] & occupied);
}

// Whether a man of that kind on `to`, which has left `from`, attacks the king.
static bool AttacksFrom(int to, int from, Colour us, int piece, int king) {
    const Bitboard kingBit = SquareBit(king);
    switch (piece) {
    case KNIGHT:
        return (KnightAttacks[to] & kingBit) != 0;
    case PAWN:
        return (PawnAttacks[us][to] & kingBit) != 0;
    case ROOK:
    case BISHOP:
    case QUEEN: {
        const Bitboard rays = piece == ROOK     ? RookRays[to]
                              : piece == BISHOP ? BishopRays[to]
                                                : RookRays[to] | BishopRays[to];
        return (rays & kingBit) && !(Between[to][king] & Occupied() & ~SquareBit(from));
    }
    default:
        return false;
    }
}

bool GivesCheck(Move move) {
    assert(ColourBB[SideToMove] & SquareBit(From(move)));
    const Colour us = SideToMove;
    const Colour them = ChangeSide(us);
    const int king = KingSquare[them];
    const int from = From(move);
    const int to = To(move);
    const Piece piece = Promotion(move) != EMPTY ? Promotion(move) : MovingPiece(move);
    if (AttacksFrom(to, from, us, piece, king))
        return true;
    if (IsEnPassant(move)) {
        return LineAttackAfter(king, us, SquareBit(from) | SquareBit(VictimSquare(move)), to);
    }
    if (IsCastling(move))
        return CastlingGivesCheck(move, king);
    return LineOpensFrom(king, from, us) && DirectionTo[king][from] != DirectionTo[king][to];
}

bool IsLegalMove(Move move) {
    const Colour us = SideToMove;
    const Colour them = ChangeSide(us);
    const int from = From(move);
    const int to = To(move);
    if (MovingPiece(move) == KING)
        return IsCastling(move) || !SquareAttacked(them, to);
    const int king = KingSquare[us];
    if (IsEnPassant(move)) {
        return !LineAttackAfter(king, them, SquareBit(from) | SquareBit(VictimSquare(move)), to);
    }
    return !LineOpensFrom(king, from, them) || DirectionTo[king][from] == DirectionTo[king][to];
}
