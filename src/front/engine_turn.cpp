#include "front/engine_turn.h"

#include <cstdio>

#include "board/notation.h"
#include "board/position.h"
#include "front/game.h"
#include "front/thinking.h"
#include "search/driver.h"
#include "search/interrupts.h"
#include "search/limits.h"

bool ThinkAndMove() {
    ForgetOldHistory();
    return Think();
}

static bool MayPonder() {
    return PonderNow && !ForceMode && !UciMode && PonderMove != NO_MOVE;
}

// Thinks about the position after the predicted reply. True when the opponent has played it and the
// engine has answered; otherwise the board is as it was.
static bool Ponder() {
    ResetInterrupts();
    SearchMoveCount = 0;
    PredictedMove = PonderMove;
    PlayMove(PredictedMove);
    PonderingOnPrediction = GoPonder = true;
    std::printf("Hint: %s\n", ShortMoveText(PredictedMove).c_str());
    std::fflush(stdout);
    const bool answered = ThinkAndMove();
    GoPonder = false;
    if (PonderingOnPrediction) {
        TakeBack(UndoRequested ? 2 : 1);
        PonderingOnPrediction = false;
    }
    return answered;
}

void TakeTurn() {
    EngineSide = SideToMove;
    ResetInterrupts();
    bool moved = ThinkAndMove();
    while (moved && MayPonder())
        moved = Ponder();
    if (NewRequested)
        NewGame();
}
