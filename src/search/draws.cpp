#include "search/draws.h"

#include "board/position.h"

namespace {

constexpr int FIFTY_MOVE_PLIES = 100;

} // namespace

static bool ReversiblePair(int ply) {
    return IsReversible(UndoStack[ply].move) && IsReversible(UndoStack[ply + 1].move);
}

// Only an even number of plies back can the same side have been to move, and four at least.
static bool Repeated() {
    if (FiftyCount < 4 || Ply < 4 || !ReversiblePair(Ply - 2))
        return false;
    for (int ply = Ply - 4; ply >= 0 && ReversiblePair(ply); ply -= 2) {
        if (UndoStack[ply].posKey == PosKey)
            return true;
    }
    return false;
}

bool DrawByHistory() {
    return FiftyCount >= FIFTY_MOVE_PLIES || Repeated();
}

bool DrawByMaterial() {
    return MenCount <= 3 && PhaseUnits[WHITE] + PhaseUnits[BLACK] <= PiecePhaseUnits[KNIGHT] &&
           PieceCount[PAWN][WHITE] + PieceCount[PAWN][BLACK] == 0;
}
