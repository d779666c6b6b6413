#include "front/commands/search_commands.h"

#include <cinttypes>
#include <cstdio>

#include "board/notation.h"
#include "front/commands/help.h"
#include "front/dialects/variation.h"
#include "front/game/activity.h"
#include "front/game/adjudication.h"
#include "front/game/dialect.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/input/reply.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"

void MoveNow(const CommandLine&) {
    Interrupts.PredictionMissed |= Limits.GoPonder;
    Limits.GoPonder = false;
}

void MoveNowIfThinking(const CommandLine& line) {
    // A person has no other use for it.
    if (CurrentActivity == IDLE && Speaking->person)
        return ShowHelp(line);
    if (CurrentActivity == THINKING && !Limits.Analysing)
        Running.StopSearch = true;
}

void PausePondering(const CommandLine&) {
    Game.Pause.wanted = true;
    Running.StopSearch = true;
}

void AnswerPing(const CommandLine& line) {
    Interface.OwedPongs.push_back(line.Number(1));
    // While the engine owes a move, the answer has to wait for it.
    if (CurrentActivity != THINKING || Limits.Analysing)
        PayPongs();
}

void PonderHit(const CommandLine&) {
    Limits.GoPonder = false;
    AnnounceDraws();
}

void RequestUndo(const CommandLine&) {
    Interrupts.UndoRequested = true;
}

void RequestExit(const CommandLine&) {
    Interrupts.ExitRequested = true;
}

void RequestNewGame(const CommandLine&) {
    Interrupts.NewRequested = true;
}

void RequestForce(const CommandLine&) {
    Game.ForceMode = true;
    Interrupts.ForceRequested = true;
}

void ReceiveResult(const CommandLine&) {
    Interrupts.ResultReceived = true;
}

void ShowProgress(const CommandLine&) {
    std::printf("stat01: %d %" PRId64 " %d %d %d %s\n", ElapsedTime(), Running.NodeCount,
                Running.IterationDepth + 1, Root.count - 1 - Root.index, Root.count,
                MoveText(MoveBeingSearched()).c_str());
    std::fflush(stdout);
}

void ShowNoProgress(const CommandLine&) {
    PrintLine("stat01: 0 0 0 0 0");
}
