#include "search/tree/draws.h"

#include "board/draw_rules.h"
#include "board/position.h"

bool DrawByHistory() {
    return FiftyMovesPassed() || HasRepeatedOnce();
}

bool DrawByMaterial() {
    return MenCount <= 3 && PhaseUnits[WHITE] + PhaseUnits[BLACK] <= PiecePhaseUnits[KNIGHT] &&
           PieceCount[PAWN][WHITE] + PieceCount[PAWN][BLACK] == 0;
}
