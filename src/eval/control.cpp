#include "eval/control.h"

#include "board/pawns.h"
#include "board/position.h"
#include "eval/figures.h"
#include "eval/parameters/parameters.h"

namespace {

// A king is no further away than this from anything.
constexpr int LONGEST_WALK = 7;

} // namespace

// Squares that both sides attack, without an enemy pawn among them.
template <Colour Us> static void AddContested(SideView& us, const SideView& them) {
    const Bitboard contested = us.attacks & them.attacks & ~them.pawnAttacks;
    us.Add(CountBits(contested & ~ColourBB[ChangeSide(Us)]), Params.ContestedMiddlegame,
           Params.ContestedEnding);
}

// Steps of a king to the nearest of the men, counted as on an empty board.
static int StepsToNearest(int king, Bitboard men) {
    Bitboard reached = SquareBit(king);
    for (int steps = 0; steps < LONGEST_WALK; steps++) {
        if (reached & men)
            return steps;
        reached |= SquaresBeside(reached);
        reached |= Ahead<WHITE>(reached) | Ahead<BLACK>(reached);
    }
    return LONGEST_WALK;
}

// Pawns beside a king shelter it. A king that has little to fear belongs near the pawns.
template <Colour Us> static void AddKing(SideView& us) {
    const int king = KingSquare[Us];
    const Bitboard own = PieceBB[PAWN][Us];
    us.Add(CountBits(KingAttacks[king] & own), Params.PawnAtKingMiddlegame,
           Params.PawnAtKingEnding);
    if (!Figures.EndingFlag[Us])
        return;
    us.ending -= StepsToNearest(king, own) * Params.KingFromOwnPawn +
                 StepsToNearest(king, PieceBB[PAWN][ChangeSide(Us)]) * Params.KingFromEnemyPawn;
}

template <Colour Us> static void EvaluateSide(SideView& us, const SideView& them) {
    AddContested<Us>(us, them);
    AddKing<Us>(us);
}

void EvaluateControl(SideView& white, SideView& black) {
    EvaluateSide<WHITE>(white, black);
    EvaluateSide<BLACK>(black, white);
}
