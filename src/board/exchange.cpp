#include "board/exchange.h"

#include <cassert>
#include <initializer_list>

#include "board/attackers.h"

namespace {

// Exchange units by piece code: coarse on purpose, so that knights and bishops are alike.
constexpr int ExchangeUnits[PIECE_CODES] = {0, 200, 3, 1, 0, 5, 3, 9};

// Who is left to capture on a square, both sides together.
struct Attackers {
    Bitboard men;
    int to;

    // Takes out the least valuable attacker of `side` except its king and lets in the slider
    // behind it; returns its units, 0 when only the king or nobody is left.
    int TakeLeastValuable(Colour side) {
        for (const Piece piece : {PAWN, KNIGHT, BISHOP, ROOK, QUEEN}) {
            const Bitboard found = men & PieceBB[piece][side];
            if (!found)
                continue;
            const int sq = LowestSquare(found);
            men ^= SquareBit(sq);
            if (piece != KNIGHT)
                men |= SlidersBeyond(sq, DirectionTo[to][sq]);
            return ExchangeUnits[piece];
        }
        return 0;
    }

    bool TakeKing(Colour side) {
        const Bitboard king = men & PieceBB[KING][side];
        men ^= king;
        return king != 0;
    }
};

} // namespace

// Plays the captures on the square out, cheapest first, opponent to begin; `balance` is what the
// mover has won should its man be lost.
static bool ExchangeHolds(Attackers attackers, int balance, Colour us) {
    const Colour them = ChangeSide(us);
    for (;;) {
        int units = attackers.TakeLeastValuable(them);
        if (units == 0) {
            if (!attackers.TakeKing(them))
                return true;
            units = ExchangeUnits[KING];
        }
        balance += units;
        if (balance < 0)
            return false;

        units = attackers.TakeLeastValuable(us);
        if (units == 0) {
            if (!attackers.TakeKing(us))
                return false;
            // Only the enemy king's capture lifts the balance this far.
            if (balance > 100)
                return true;
            units = ExchangeUnits[KING];
        }
        balance -= units;
        if (balance >= 0)
            return true;
    }
}

bool SafeExchange(int to, int from, int piece, int captured, int promotion) {
    assert(IsSquare(to) && IsSquare(from) && to != from);
    if (promotion != EMPTY && promotion != QUEEN)
        return false;
    int moved = ExchangeUnits[piece];
    int won = ExchangeUnits[captured];
    if (moved <= won)
        return true;
    if (promotion == QUEEN) {
        moved = ExchangeUnits[QUEEN];
        won += ExchangeUnits[QUEEN] - ExchangeUnits[PAWN];
    }

    // Most questions are answered here, before the attackers are all known: what is risked is more
    // than taking the guard in return would bring.
    const Colour us = SideToMove;
    const Colour them = ChangeSide(us);
    const int risk = moved - won;
    Bitboard men = PawnAttacks[us][to] & PieceBB[PAWN][them];
    if (risk > ExchangeUnits[PAWN] && men)
        return false;
    men |= KnightAttacks[to] & (PieceBB[KNIGHT][WHITE] | PieceBB[KNIGHT][BLACK]);
    if (risk > ExchangeUnits[KNIGHT] && (men & PieceBB[KNIGHT][them]))
        return false;
    if (BishopRays[to] & DiagSliders)
        men |= BishopAttacks(to) & DiagSliders;
    if (risk > ExchangeUnits[BISHOP] && (men & PieceBB[BISHOP][them]))
        return false;
    if (RookRays[to] & OrthoSliders)
        men |= RookAttacks(to) & OrthoSliders;
    if (risk > ExchangeUnits[ROOK] && (men & PieceBB[ROOK][them]))
        return false;
    const Bitboard ourPawns = PawnAttacks[them][to] & PieceBB[PAWN][us];
    if (moved < ExchangeUnits[QUEEN] && won > 0 && ourPawns)
        return true;

    men |= ourPawns | (KingAttacks[to] & (PieceBB[KING][WHITE] | PieceBB[KING][BLACK]));
    men &= ~(SquareBit(from) | SquareBit(to));
    if (const Direction direction = DirectionTo[to][from]; direction != NO_DIRECTION)
        men |= SlidersBeyond(from, direction);
    return !men || ExchangeHolds({men, to}, won - moved, us);
}
