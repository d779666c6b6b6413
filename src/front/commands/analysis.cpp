#include "front/commands/analysis.h"

#include <cstdio>
#include <string>

#include "board/legal_moves.h"
#include "board/notation.h"
#include "front/commands/search_commands.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/game/shutdown.h"
#include "front/input/input_lines.h"
#include "front/input/keyword.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/state.h"

// A search of the position that no limit of the game ends. True when it was told to end, false
// when it has nothing more to find.
static bool AnalysePosition() {
    const SearchLimits limitsOfGame = Limits;
    Limits = {.Analysing = true};
    Running.StopSearch = false;
    Interrupts = {};
    ThinkAndMove();
    Limits = limitsOfGame;
    return Running.StopSearch;
}

static void MakeTypedMove(const std::string& line) {
    const Move move = MoveFromText(line);
    if (IsLegal(move)) {
        std::puts("move maked...");
        PlayMove(move);
    } else {
        std::printf("Illegal move: %s\n", line.c_str());
    }
    std::fflush(stdout);
}

namespace {

// What has ended the wait after a search that ended by itself.
enum class Work { NONE, MOVE, COMMAND };

} // namespace

static bool IsAnalysisCommand(const std::string& line) {
    return BeginsWithKeyword("exit", line) || BeginsWithKeyword("new", line) ||
           BeginsWithKeyword("undo", line);
}

// Waits for a line that gives the analysis something to do: a move, which is made, or a command,
// which is left for the next search to act on. NONE at the end of input.
static Work WaitForWork() {
    std::string line;
    while (NextLine(line)) {
        if (line.starts_with('q'))
            EndProgram();
        if (line.starts_with('.')) {
            std::puts("stat01: 0 0 0 0 0");
            std::fflush(stdout);
        } else if (IsAnalysisCommand(line)) {
            ReturnLine(line);
            return Work::COMMAND;
        } else if (HasMoveShape(line)) {
            MakeTypedMove(line);
            return Work::MOVE;
        }
    }
    return Work::NONE;
}

static void ActOnInterrupts() {
    if (Interrupts.TypedMove != NO_MOVE)
        PlayMove(Interrupts.TypedMove);
    if (Interrupts.NewRequested)
        NewGame();
    if (Interrupts.UndoRequested)
        TakeBack(1);
}

static void RunAnalysis() {
    Work work = Work::NONE;
    for (;;) {
        bool toldToEnd = AnalysePosition();
        // A search that has nothing to do ends before it looks at its input.
        if (!toldToEnd && work == Work::COMMAND) {
            HandleSearchCommands();
            toldToEnd = true;
        }
        if (Interrupts.ExitRequested)
            return;
        ActOnInterrupts();
        work = toldToEnd ? Work::NONE : WaitForWork();
        if (!toldToEnd && work == Work::NONE)
            return;
    }
}

void AnalyseGame() {
    Limits.GoPonder = false;
    RunAnalysis();
}
