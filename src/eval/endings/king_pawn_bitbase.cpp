#include "eval/endings/king_pawn_bitbase.h"

#include <utility>

#include "board/attacks.h"
#include "board/pawns.h"

// The pawn is white here, on one of the files a to d. Pawns never come back, so the ranks are
// solved from the seventh downward, each pawn square for itself, and for one pawn square and one
// square of the bare king all squares of the white king are treated together, as a set.

namespace {

constexpr int FILES = 4;
constexpr int PAWN_SQUARES = 6 * FILES;
constexpr int SECOND_RANK = 1;
constexpr int SEVENTH_RANK = 6;

// Squares of the white king that win, by the square of the bare king.
using WinSets = Bitboard[64];

struct PawnWins {
    WinSets whiteToMove;
    WinSets blackToMove;
};

// By pawn square: a2 to d2, a3 to d3 and so on.
constinit PawnWins Wins[PAWN_SQUARES] = {};

} // namespace

static int PawnIndex(int pawn) {
    return (RankOf(pawn) - SECOND_RANK) * FILES + FileOf(pawn);
}

// A square with its neighbours: where the other king may not stand.
static Bitboard Zone(int sq) {
    return KingAttacks[sq] | SquareBit(sq);
}

// All squares next to one of the set.
static Bitboard Neighbours(Bitboard set) {
    const Bitboard beside = SquaresBeside(set);
    const Bitboard row = set | beside;
    return beside | row << 8 | row >> 8;
}

// White kings with which the pawn's promotion wins at once: the new queen, or the rook where the
// queen stalemates, is not taken.
static Bitboard WinsByPromotion(int pawn, int bareKing) {
    const int target = pawn + 8;
    if (target == bareKing)
        return 0;
    const Bitboard guards = KingAttacks[target];
    return (guards & SquareBit(bareKing) ? guards : ~Bitboard{0}) & ~SquareBit(target);
}

// White kings with which a step or a double step of the pawn wins.
static Bitboard WinsByPush(int pawn, int bareKing) {
    const int step = pawn + 8;
    if (RankOf(pawn) == SEVENTH_RANK)
        return WinsByPromotion(pawn, bareKing);
    if (step == bareKing)
        return 0;
    Bitboard wins = Wins[PawnIndex(step)].blackToMove[bareKing];
    if (RankOf(pawn) == SECOND_RANK)
        wins |= Wins[PawnIndex(step + 8)].blackToMove[bareKing] & ~SquareBit(step);
    return wins;
}

// White kings that win with the move, given those that win without it.
static Bitboard WinsForWhite(int pawn, int bareKing, Bitboard blackToMove) {
    if (PawnAttacks[WHITE][pawn] & SquareBit(bareKing))
        return 0;
    const Bitboard possible = ~Zone(bareKing) & ~SquareBit(pawn);
    return possible & (Neighbours(blackToMove) | WinsByPush(pawn, bareKing));
}

// White kings that win against every reply of the bare king, if there is one.
static Bitboard WinsAgainstReplies(int pawn, int bareKing, const WinSets& whiteToMove) {
    Bitboard canMove = 0;
    Bitboard escapes = 0;
    Bitboard targets = KingAttacks[bareKing] & ~PawnAttacks[WHITE][pawn];
    while (targets) {
        const int target = PopLowest(targets);
        const Bitboard possible = ~Zone(target);
        canMove |= possible;
        escapes |= target == pawn ? possible : possible & ~whiteToMove[target];
    }
    return canMove & ~escapes & ~Zone(bareKing) & ~SquareBit(pawn);
}

static void SolvePawnSquare(int pawn) {
    PawnWins& wins = Wins[PawnIndex(pawn)];
    bool changed = true;
    while (changed) {
        changed = false;
        for (int bareKing = 0; bareKing < 64; bareKing++) {
            if (bareKing == pawn)
                continue;
            const Bitboard black = WinsAgainstReplies(pawn, bareKing, wins.whiteToMove);
            const Bitboard white = WinsForWhite(pawn, bareKing, black);
            changed |= std::exchange(wins.blackToMove[bareKing], black) != black;
            changed |= std::exchange(wins.whiteToMove[bareKing], white) != white;
        }
    }
}

void InitKingPawnBitbase() {
    for (int rank = SEVENTH_RANK; rank >= SECOND_RANK; rank--) {
        for (int file = 0; file < FILES; file++)
            SolvePawnSquare(rank * 8 + file);
    }
}

bool KingPawnWins(Colour strong, int strongKing, int pawn, int bareKing, Colour sideToMove) {
    const int mirror = (strong == WHITE ? 0 : 56) ^ (FileOf(pawn) < FILES ? 0 : 7);
    pawn ^= mirror;
    if (RankOf(pawn) < SECOND_RANK || RankOf(pawn) > SEVENTH_RANK)
        return false;
    const PawnWins& wins = Wins[PawnIndex(pawn)];
    const WinSets& sets = sideToMove == strong ? wins.whiteToMove : wins.blackToMove;
    return (sets[bareKing ^ mirror] & SquareBit(strongKing ^ mirror)) != 0;
}
