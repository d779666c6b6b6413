#include "front/game/engine_turn.h"

#include <cstdio>
#include <utility>

#include "board/notation.h"
#include "board/position.h"
#include "front/game/activity.h"
#include "front/game/dialect.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/typed_move.h"
#include "search/host.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/tree/driver.h"

bool ThinkAndMove() {
    ForgetOldHistory();
    CurrentActivity = Interrupts.PonderingOnPrediction ? PONDERING : THINKING;
    const bool moved = Think();
    CurrentActivity = IDLE;
    return moved;
}

void ActOnWaitingLines() {
    CurrentActivity = THINKING;
    Host.handleInput();
    CurrentActivity = IDLE;
}

static bool MayPonder() {
    return Interface.PonderNow && !Game.ForceMode && Speaking->pondersByItself &&
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

static void PlayAndPonder() {
    Game.EngineSide = SideToMove;
    Interrupts = {};
    bool moved = ThinkAndMove();
    while (moved && MayPonder())
        moved = Ponder();
    if (Interrupts.NewRequested)
        NewGame();
}

// Plays the move that has come instead of the predicted one. False when there is none, or it is not
// legal.
static bool PlayReply() {
    const auto reply = std::move(Game.Reply);
    return reply != nullptr && PlayTypedMove(*reply);
}

static void ForgetOrders() {
    Limits.GoPonder = false;
    Limits.SearchMoveCount = 0;
    AnswerByClock();
}

void TakeTurn() {
    PlayAndPonder();
    while (PlayReply() && !Game.ForceMode) {
        ForgetOrders();
        PlayAndPonder();
    }
}

void AnswerMove() {
    ForgetOrders();
    TakeTurn();
}
