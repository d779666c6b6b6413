#include "front/game/engine_turn.h"

#include <cstdio>
#include <utility>

#include "board/notation.h"
#include "board/position.h"
#include "front/game/activity.h"
#include "front/game/adjudication.h"
#include "front/game/dialect.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/manners.h"
#include "front/game/typed_move.h"
#include "front/input/input_lines.h"
#include "search/host.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/strength.h"
#include "search/tree/driver.h"

bool ThinkAndMove() {
    ForgetOldHistory();
    CurrentActivity = Interrupts.PonderingOnPrediction ? PONDERING : THINKING;
    const bool moved = Think();
    if (Root.count == 0 && !Limits.Analysing && Manner->answersFinishedPositions)
        Speaking->answerFinishedGame();
    CurrentActivity = IDLE;
    PayPongs();
    return moved;
}

void ActOnWaitingLines() {
    CurrentActivity = THINKING;
    Host.handleInput();
    CurrentActivity = IDLE;
}

bool GameHasEnded() {
    return Manner->claimsOwnResults && AnnounceOwnResult();
}

// Who plays below his strength does not think on the other's time.
static bool MayPonder() {
    return Interface.PonderNow && !Strength.Limited && !Game.ForceMode &&
           Speaking->pondersByItself && Game.PonderMove != NO_MOVE;
}

static void TellPrediction(Move move) {
    std::printf("Hint: %s\n", ShortMoveText(move).c_str());
    std::fflush(stdout);
}

// Thinks about the position after the predicted reply. True when the opponent has played it and the
// engine has answered; otherwise the board is as it was.
static bool Ponder() {
    Interrupts = {};
    Limits.SearchMoveCount = 0;
    Interrupts.PredictedMove = Game.PonderMove;
    if (Speaking->beginPondering != nullptr)
        Speaking->beginPondering(Interrupts.PredictedMove);
    PlayMove(Interrupts.PredictedMove);
    Interrupts.PonderingOnPrediction = Limits.GoPonder = true;
    if (Speaking->beginPondering == nullptr)
        TellPrediction(Interrupts.PredictedMove);
    const bool answered = ThinkAndMove();
    Limits.GoPonder = false;
    if (Interrupts.PonderingOnPrediction) {
        TakeBack(Interrupts.UndoRequested ? 2 : 1);
        if (Game.Pause.wanted)
            Game.Pause = {true, Ply, PosKey, Interrupts.PredictedMove};
        Interrupts.PonderingOnPrediction = false;
    }
    return answered;
}

// Ponders and plays for as long as the opponent plays what was predicted.
static void PonderAndPlay(bool moved) {
    while (moved && !GameHasEnded() && MayPonder())
        moved = Ponder();
    if (Interrupts.NewRequested) {
        BeginNewGame();
        ShowBoardToPerson();
    }
}

static void PlayAndPonder() {
    Game.EngineSide = SideToMove;
    Interrupts = {};
    const bool moved = ThinkAndMove();
    PonderAndPlay(moved);
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

static void AnswerReplies() {
    while (PlayReply() && !Game.ForceMode) {
        ForgetOrders();
        PlayAndPonder();
    }
}

void TakeTurn() {
    Game.Pause = {};
    Game.AnalysisPaused = false;
    PlayAndPonder();
    AnswerReplies();
}

void ResumePondering() {
    const auto pause = Game.Pause;
    if (!pause.wanted || LineWaiting())
        return;
    Game.Pause = {};
    if (Ply != pause.ply || PosKey != pause.posKey || SideToMove == Game.EngineSide)
        return;
    Game.PonderMove = pause.ponderMove;
    PonderAndPlay(true);
    AnswerReplies();
}

void AnswerMove() {
    ForgetOrders();
    TakeTurn();
}
