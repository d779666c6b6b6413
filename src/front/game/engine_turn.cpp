#include "front/game/engine_turn.h"

#include <cstdio>

#include "board/notation.h"
#include "board/position.h"
#include "front/dialects/thinking.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "search/driver.h"
#include "search/interrupts.h"
#include "search/limits.h"

bool ThinkAndMove() {
    ForgetOldHistory();
    return Think();
}

static bool MayPonder() {
    return Interface.PonderNow && !Game.ForceMode && !Interface.UciMode &&
           Game.PonderMove != NO_MOVE;
}

// Thinks about the position after the predicted reply. True when the opponent has played it and the
// engine has answered; otherwise the board is as it was.
static bool Ponder() {
    Interrupts = {};
    Limits.SearchMoveCount = 0;
    Interrupts.PredictedMove = Game.PonderMove;
    PlayMove(Interrupts.PredictedMove);
    Interrupts.PonderingOnPrediction = Limits.GoPonder = true;
    std::printf("Hint: %s\n", ShortMoveText(Interrupts.PredictedMove).c_str());
    std::fflush(stdout);
    const bool answered = ThinkAndMove();
    Limits.GoPonder = false;
    if (Interrupts.PonderingOnPrediction) {
        TakeBack(Interrupts.UndoRequested ? 2 : 1);
        Interrupts.PonderingOnPrediction = false;
    }
    return answered;
}

void TakeTurn() {
    Game.EngineSide = SideToMove;
    Interrupts = {};
    bool moved = ThinkAndMove();
    while (moved && MayPonder())
        moved = Ponder();
    if (Interrupts.NewRequested)
        NewGame();
}
