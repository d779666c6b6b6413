#include "front/search_host.h"

#include "front/commands/search_commands.h"
#include "front/dialects/thinking.h"
#include "front/dialects/uci.h"
#include "front/game/adjudication.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/input/input_lines.h"
#include "platform/input.h"
#include "search/host.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/state.h"

static bool InputWaiting() {
    return LineWaiting() || StandardInputWaiting() != 0;
}

// A predicted position has not arisen yet, so that nothing is announced of it, or learned from it.
static void AnnounceDrawsOfGame() {
    FindDraws();
    if (Limits.GoPonder)
        return;
    AnnounceDraws();
    LearnAnnouncedDraw();
}

// No search follows in which the prediction could come true, so what was found of it is forgotten.
static void AnnounceEndOfGame() {
    LearnAnnouncedDraw();
    if (!Interrupts.PonderingOnPrediction)
        AnnounceGameOver();
}

static void AnnounceChosenMove(Move move, bool fromBook) {
    // A prediction that came true while it was searched.
    LearnAnnouncedDraw();
    if (Interface.UciMode)
        AnnounceUciMove(move);
    else
        AnnounceMove(move, fromBook);
}

// The interface may have answered the announcement of a draw with the end of the game. A search
// that has pondered in vain so far, and an analysis that found all there is to find, have a
// variation to show all the same.
static void KeepMove() {
    LearnAnnouncedDraw();
    const bool analysisEnded = Limits.Analysing && !Running.StopSearch;
    if (Interface.UciMode && (Limits.GoPonder || analysisEnded))
        PrintUciVariation(true, BOUND_EXACT);
    else if (analysisEnded)
        PrintThinking(true);
}

static void PrintBestVariations(BoundType bound, int line) {
    if (!Interface.UciMode)
        PrintThinking(false);
    else if (SearchOptions.MultiPV > 1)
        PrintUciVariations(bound, line);
    else
        PrintUciVariation(false, bound);
}

static void PrintRootMove() {
    if (Interface.UciMode)
        PrintUciCurrentMove();
}

static void PrintSearchStatistics() {
    if (Interface.UciMode)
        PrintUciStatistics();
}

void InstallHostFunctions() {
    Host.inputWaiting = InputWaiting;
    Host.waitForInput = WaitForLine;
    Host.handleInput = HandleSearchCommands;
    Host.announceDraw = AnnounceDrawsOfGame;
    Host.announceGameOver = AnnounceEndOfGame;
    Host.printVariations = PrintBestVariations;
    Host.printCurrentMove = PrintRootMove;
    Host.printStatistics = PrintSearchStatistics;
    Host.announceMove = AnnounceChosenMove;
    Host.withholdMove = KeepMove;
}
