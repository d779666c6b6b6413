#include "front/search_host.h"

#include "front/game/adjudication.h"
#include "front/game/dialect.h"
#include "front/input/input_lines.h"
#include "front/interpreter.h"
#include "search/host.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/state.h"

static bool InputWaiting() {
    return LineWaiting() || InputTellsSomething();
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

static void AnnounceMove(Move move, bool fromBook) {
    // A prediction that came true while it was searched.
    LearnAnnouncedDraw();
    Speaking->announceMove(move, fromBook);
}

// The interface may have answered the announcement of a draw with the end of the game. A search
// that has pondered in vain so far, and an analysis that found all there is to find, have a
// variation to show all the same.
static void KeepMove() {
    LearnAnnouncedDraw();
    Speaking->keepMove(Limits.Analysing && !Running.StopSearch);
}

void InstallSearchHost() {
    Host.inputWaiting = InputWaiting;
    Host.waitForInput = WaitForLine;
    Host.handleInput = ActOnInput;
    Host.announceDraw = AnnounceDrawsOfGame;
    Host.announceGameOver = AnnounceEndOfGame;
    Host.printVariations = [](BoundType bound, int line) {
        Speaking->printVariations(bound, line);
    };
    Host.printCurrentMove = [] { Speaking->printCurrentMove(); };
    Host.printStatistics = [] { Speaking->printStatistics(); };
    Host.announceMove = AnnounceMove;
    Host.withholdMove = KeepMove;
}
