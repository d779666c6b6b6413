#include "front/console/person.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "board/moves/make_move.h"
#include "board/moves/san.h"
#include "board/position.h"
#include "front/console/picture.h"
#include "front/console/refusal.h"
#include "front/dialects/variation.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/resign.h"
#include "front/input/reply.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/strength.h"

namespace {

// Nodes until which an unforced line is held back.
constexpr int64_t SILENT_NODES = 100000;

// The lines of this search have their head.
constinit bool HeadPrinted = false;

} // namespace

static std::string ScoreText(int32_t score) {
    if (score > MATE_BOUND)
        return "mate " + std::to_string((MATE + 1 - score) / 2);
    if (score < -MATE_BOUND)
        return "mate -" + std::to_string((score + MATE + 1) / 2);
    char text[32];
    std::snprintf(text, sizeof text, "%+.2f", score / 100.0);
    return text;
}

static void PrintHead() {
    if (!HeadPrinted)
        std::printf("depth    score   seconds      nodes  variation\n");
    HeadPrinted = true;
}

static std::string VariationText() {
    Move moves[MAX_VARIATION];
    const int count = TakeVariation(0, moves);
    std::string text;
    for (int i = 0; i < count; i++) {
        text += " " + SanText(moves[i]);
        MakeMove(moves[i], true);
    }
    for (int i = 0; i < count; i++)
        UnmakeMove();
    return text;
}

// While the engine ponders, the prompt waits for the person and nothing is written behind it.
static void PrintThinking(bool forced) {
    if (!Interface.PostThinking || Limits.GoPonder || Ply != Root.gamePly ||
        (!forced && Running.NodeCount <= SILENT_NODES))
        return;
    PrintHead();
    std::printf("%5d %8s %9.2f %10" PRId64 " %s\n", Running.IterationDepth + 1,
                ScoreText(Root.moves[0].score).c_str(), ElapsedTime() / 100.0, Running.NodeCount,
                VariationText().c_str());
    std::fflush(stdout);
}

static void AnnounceMove(Move move, bool fromBook) {
    if (!fromBook)
        PrintThinking(true);
    HeadPrinted = false;
    Game.PonderMove = ExpectedReply(move);
    if (ShouldResign())
        std::printf("Tarquelin resigns. You may play on.\n");
    std::printf("Tarquelin plays %d%s %s%s\n", MoveNumber(), SideToMove == WHITE ? "." : "...",
                SanText(move).c_str(), fromBook ? " (book)" : "");
    MakeMove(move, true);
    PrintPicture();
    UnmakeMove();
}

static void KeepMove(bool analysisEnded) {
    if (analysisEnded)
        PrintThinking(true);
    HeadPrinted = false;
}

static void RefuseMove(const std::string& text) {
    std::printf("%s is not possible: %s.\n", text.c_str(), WhyNotPlayed(text).c_str());
    std::fflush(stdout);
}

static void RefuseLine(const std::string& text) {
    if (text.find_first_not_of(' ') != std::string::npos)
        PrintLine("That is no command and no move. Moves are e4 or e2e4; help shows commands.");
}

void TellStrength() {
    if (Strength.Limited)
        std::printf("Tarquelin plays at level %d of %d to %d; strength full sets it free.\n",
                    Strength.Elo, LEAST_ELO, MOST_ELO);
    else
        std::printf("Tarquelin plays as well as it can; strength 1500 would be a weaker level.\n");
    std::fflush(stdout);
}

void WelcomePerson() {
    PrintPicture();
    PrintLine(
        "You have White. Type a move (e4 or e2e4), go to let Tarquelin begin, help, or quit.");
    if (Strength.Limited)
        TellStrength();
}

constinit const Dialect PersonDialect = {
    .printResult = PrintLine,
    .printNote = PrintLine,
    .printVariations = [](BoundType, int) { PrintThinking(false); },
    .printCurrentMove = [] {},
    .printStatistics = [] {},
    .announceMove = AnnounceMove,
    .answerFinishedGame = [] {},
    .keepMove = KeepMove,
    .beginPondering = [](Move) { PrintPrompt(); },
    .refuseMove = RefuseMove,
    .refuseLine = RefuseLine,
    .showBoard = PrintPicture,
    .awaitLine = PrintPrompt,
    .keepsLastScore = false,
    .pondersByItself = true,
    .person = true,
};
