#include "board/moves/perft.h"

#include <cassert>

#include "board/attackers.h"
#include "board/moves/generate.h"
#include "board/moves/make_move.h"
#include "board/recompute.h"

namespace {

// A node with this many plies below it asks whether the count is still wanted: a fraction of a
// second's work from the next that asks.
constexpr int ASKING_DEPTH = 5;

} // namespace

// Leaves below the position. A node in which a king can be taken was reached by an illegal move
// and has none.
static uint64_t Perft(int depth, bool (*wanted)()) {
    if (depth >= ASKING_DEPTH && !wanted())
        return 0;
    assert(PositionIsConsistent());
    const int start = MoveStackTop;
    GenerateCaptures(ColourBB[ChangeSide(SideToMove)]);
    GeneratePromotions();
    for (int i = start; i < MoveStackTop; i++) {
        if (CapturedPiece(MoveStack[i].move) == KING) {
            MoveStackTop = start;
            return 0;
        }
    }
    GenerateQuiet(1);
    uint64_t leaves = 0;
    const int end = MoveStackTop;
    for (int i = start; i < end; i++) {
        const Colour them = MakeMove(MoveStack[i].move, true);
        if (depth > 1)
            leaves += Perft(depth - 1, wanted);
        else if (!SquareAttacked(them, KingSquare[ChangeSide(them)]))
            leaves++;
        UnmakeMove();
    }
    assert(PositionIsConsistent());
    MoveStackTop = start;
    return leaves;
}

uint64_t CountPerft(int depth, bool (*wanted)()) {
    if (depth < 1 || depth > MAX_PERFT_DEPTH)
        return 0;
    MoveStackTop = 0;
    return Perft(depth, wanted);
}
