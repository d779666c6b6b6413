#include "front/commands/analysis.h"

#include "front/game/activity.h"
#include "front/game/dialect.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/input/reply.h"
#include "search/host.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/state.h"

namespace {

// What has ended the wait after a search that ended by itself.
enum class Work { NONE, POSITION, LINE };
constinit Work Given = Work::NONE;

} // namespace

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

// Waits for a line that gives the analysis something to do. NONE at the end of input.
static Work WaitForWork() {
    Given = Work::NONE;
    CurrentActivity = WAITING;
    while (Given == Work::NONE && Host.waitForInput())
        Host.handleInput();
    CurrentActivity = IDLE;
    return Given;
}

void AnalyseChangedPosition() {
    Given = Work::POSITION;
}

void LeaveLineToSearch(const CommandLine&) {
    Given = Work::LINE;
}

void PauseAnalysis() {
    Game.AnalysisPaused = Running.StopSearch = true;
    Given = Work::LINE;
}

static void ActOnInterrupts() {
    if (Interrupts.TypedMove != NO_MOVE)
        PlayMove(Interrupts.TypedMove);
    if (Interrupts.NewRequested)
        BeginNewGame();
    if (Interrupts.UndoRequested)
        TakeBack(1);
    if (Interrupts.TypedMove != NO_MOVE || Interrupts.NewRequested || Interrupts.UndoRequested)
        ShowBoardToPerson();
}

void Analyse(const CommandLine& line) {
    if (Speaking->person && !line.text.empty())
        PrintLine("exit ends the analysis; moves and undo change the position.");
    Limits.GoPonder = Game.AnalysisPaused = false;
    Work work = Work::NONE;
    for (;;) {
        bool toldToEnd = AnalysePosition();
        // A search that has nothing to do ends before it looks at its input.
        if (!toldToEnd && work == Work::LINE) {
            ActOnWaitingLines();
            toldToEnd = true;
        }
        if (Interrupts.ExitRequested || Game.AnalysisPaused)
            return;
        ActOnInterrupts();
        work = toldToEnd ? Work::NONE : WaitForWork();
        if (Game.AnalysisPaused || (!toldToEnd && work == Work::NONE))
            return;
    }
}
