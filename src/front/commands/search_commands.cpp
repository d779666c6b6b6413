#include "front/commands/search_commands.h"

#include <cinttypes>
#include <cstdio>

#include "board/notation.h"
#include "front/dialects/variation.h"
#include "front/game/adjudication.h"
#include "front/input/reply.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"

void MoveNow(const CommandLine&) {
    Limits.GoPonder = false;
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
