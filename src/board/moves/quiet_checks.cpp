#include "board/moves/quiet_checks.h"

#include <initializer_list>

#include "board/attackers.h"
#include "board/exchange.h"
#include "board/moves/generate.h"
#include "board/moves/order_tables.h"
#include "board/pawns.h"

namespace {

// What a side's quiet moves must do to check the enemy king.
struct CheckTargets {
    int king; // of the enemy
    Bitboard empty;
    Bitboard discoverers; // men whose leaving their line to the king uncovers a slider
    int slice;
};

} // namespace

static CheckTargets FindTargets(Colour us, int slice) {
    const int king = KingSquare[ChangeSide(us)];
    const Bitboard sliders =
        ((RookRays[king] & OrthoSliders) | (BishopRays[king] & DiagSliders)) & ColourBB[us];
    Bitboard discoverers = 0;
    for (Bitboard b = sliders; b;) {
        const Bitboard between = Between[king][PopLowest(b)] & Occupied();
        if (CountBits(between) == 1)
            discoverers |= between & ColourBB[us];
    }
    return {king, ~Occupied(), discoverers, slice};
}

static void EmitCheck(Move move, int slice) {
    if (SafeExchange(move))
        PushMove(move, HistoryTable[HistoryIndex(move, slice, SideToMove)]);
}

// Where a man on `from` must go to give check: to the squares that check directly, and, if it
// stands before a slider, anywhere off its line.
static Bitboard Wanted(const CheckTargets& targets, int from, Bitboard direct) {
    if (!(targets.discoverers & SquareBit(from)))
        return direct;
    return direct | ~Ray[DirectionTo[targets.king][from]][targets.king];
}

static void GeneratePieceChecks(const CheckTargets& targets, Colour us, Piece type) {
    const Bitboard direct = PieceAttacks(targets.king, us, type);
    for (Bitboard men = PieceBB[type][us]; men;) {
        const int from = PopLowest(men);
        const Bitboard wanted = Wanted(targets, from, direct);
        if (!(wanted & targets.empty))
            continue;
        for (Bitboard b = PieceAttacks(from, us, type) & targets.empty & wanted; b;)
            EmitCheck(MoveWord(from, PopLowest(b), type), targets.slice);
    }
}

template <Colour Us> static void GeneratePawnChecks(const CheckTargets& targets) {
    const Bitboard direct = PawnAttacks[ChangeSide(Us)][targets.king];
    Bitboard pawns = PieceBB[PAWN][Us] & ~RelativeRankBB(Us, PROMOTING_RANK) &
                     Ahead<ChangeSide(Us)>(targets.empty);
    while (pawns) {
        const int from = PopLowest(pawns);
        const int to = from + AheadStep<Us>;
        const Bitboard wanted = Wanted(targets, from, direct) & targets.empty;
        if (wanted & SquareBit(to))
            EmitCheck(MoveWord(from, to, PAWN), targets.slice);
        if (RelativeRank(Us, from) == DOUBLE_STEP_RANK && (wanted & SquareBit(to + AheadStep<Us>)))
            EmitCheck(MoveWord(from, to + AheadStep<Us>, PAWN), targets.slice);
    }
}

void GenerateQuietChecks(int slice) {
    const Colour us = SideToMove;
    const CheckTargets targets = FindTargets(us, slice);
    for (const Piece type : {QUEEN, ROOK, BISHOP, KNIGHT})
        GeneratePieceChecks(targets, us, type);
    if (us == WHITE)
        GeneratePawnChecks<WHITE>(targets);
    else
        GeneratePawnChecks<BLACK>(targets);
}
