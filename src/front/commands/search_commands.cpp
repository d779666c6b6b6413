#include "front/commands/search_commands.h"

#include <cinttypes>
#include <cstdio>
#include <string>
#include <string_view>

#include "board/notation.h"
#include "front/dialects/thinking.h"
#include "front/game/adjudication.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/play_settings.h"
#include "front/game/shutdown.h"
#include "front/input/clocks.h"
#include "front/input/input_lines.h"
#include "front/input/keyword.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/time_allotment.h"

namespace {

// What becomes of the lines that wait behind the one acted on.
enum class After { NEXT_LINE, RETURN };

// Where the number of "time" and "otim" begins.
constexpr size_t NUMBER_OFFSET = 5;

} // namespace

static After EndSearch() {
    Running.StopSearch = true;
    return After::RETURN;
}

static After MoveNow(const std::string&) {
    Limits.GoPonder = false;
    return EndSearch();
}

static After ShowProgress(const std::string&) {
    std::printf("stat01: %d %" PRId64 " %d %d %d %s\n", ElapsedTime(), Running.NodeCount,
                Running.IterationDepth + 1, Root.count - 1 - Root.index, Root.count,
                MoveText(MoveBeingSearched()).c_str());
    std::fflush(stdout);
    return After::RETURN;
}

static After AnswerReady(const std::string&) {
    std::puts("readyok");
    std::fflush(stdout);
    return After::NEXT_LINE;
}

static After PonderHit(const std::string&) {
    Limits.GoPonder = false;
    AnnounceDraws();
    return After::NEXT_LINE;
}

static After RequestUndo(const std::string&) {
    Interrupts.UndoRequested = true;
    return EndSearch();
}

static After RequestExit(const std::string&) {
    Interrupts.ExitRequested = true;
    return EndSearch();
}

static After RequestNewGame(const std::string&) {
    Interrupts.NewRequested = true;
    return EndSearch();
}

static After ReceiveResult(const std::string&) {
    Interrupts.ResultReceived = true;
    return EndSearch();
}

static After Quit(const std::string&) {
    EndProgram();
}

static After SwitchPost(const std::string& line) {
    Interface.PostThinking = KeywordMatches("post", line);
    return EndSearch();
}

static After EnterForce(const std::string&) {
    Game.ForceMode = true;
    return EndSearch();
}

static After PonderingOn(const std::string&) {
    if (PlayOptions.Pondering)
        Interface.PonderNow = true;
    return EndSearch();
}

static After PonderingOff(const std::string&) {
    Interface.PonderNow = false;
    return EndSearch();
}

// The number that a clock is set to; without one the clock stays.
static void SetClock(const std::string& line, int32_t& clock) {
    if (line.size() > NUMBER_OFFSET)
        clock = RemainingTime(ReadNumber(std::string_view(line).substr(NUMBER_OFFSET)));
}

static After SetOwnClock(const std::string& line) {
    SetClock(line, Clock.OwnTime);
    return Interrupts.PonderingOnPrediction ? After::NEXT_LINE : EndSearch();
}

static After SetOpponentClock(const std::string& line) {
    SetClock(line, Clock.OpponentTime);
    return After::NEXT_LINE;
}

// The board stands somewhere in the tree, so that the men in the word of a typed move mean nothing.
static bool SameSquares(Move a, Move b) {
    return From(a) == From(b) && To(a) == To(b) && Promotion(a) == Promotion(b);
}

static Move FindRootMove(Move move) {
    for (int i = 0; i < Root.count; i++) {
        if (SameSquares(RootMove(i), move))
            return RootMove(i);
    }
    return NO_MOVE;
}

// The opponent's move has come while the engine pondered. The predicted one lets the search go on
// as the engine's own; any other is left to be read again on the board as it was before the
// prediction, where it is made and answered, or found illegal.
static After AnswerPrediction(const std::string& line) {
    if (!SameSquares(MoveFromText(line), Interrupts.PredictedMove)) {
        ReturnLine(line);
        return EndSearch();
    }
    Interrupts.PonderingOnPrediction = Limits.GoPonder = false;
    AnswerByClock();
    ReallotTime();
    AnnounceDraws();
    return After::RETURN;
}

static After TakeTypedMove(const std::string& line) {
    if (Interrupts.PonderingOnPrediction)
        return AnswerPrediction(line);
    Interrupts.TypedMove = FindRootMove(MoveFromText(line));
    if (Interrupts.TypedMove == NO_MOVE) {
        std::printf("Illegal move: %s\n", line.c_str());
        std::fflush(stdout);
    }
    return EndSearch();
}

namespace {

struct SearchCommand {
    char first;          // matches a line with exactly this first character; 0 for none
    const char* keyword; // matches by the keyword rule; null for none
    After (*act)(const std::string& line);
};

// Tried from top to bottom, the first match acts, and a line that matches nothing is ignored.
// Keywords match their own beginnings, so the order is part of the protocol. Most commands end the
// search, even those that look harmless: interfaces rely on being answered by a move at once.
constexpr SearchCommand SearchCommands[] = {
    {'?', "stop", MoveNow},
    {'.', nullptr, ShowProgress},
    {0, "isready", AnswerReady},
    {0, "ponderhit", PonderHit},
    {0, "undo", RequestUndo},
    {0, "exit", RequestExit},
    {0, "new", RequestNewGame},
    {0, "result", ReceiveResult},
    {0, "post", SwitchPost},
    {0, "nopost", SwitchPost},
    {'q', nullptr, Quit},
    {0, "force", EnterForce},
    {0, "hard", PonderingOn},
    {0, "easy", PonderingOff},
    {0, "time", SetOwnClock},
    // The idle interpreter knows "otime" only. Meant so.
    {0, "otim", SetOpponentClock},
};

} // namespace

static bool Matches(const SearchCommand& command, const std::string& line) {
    return (command.first != 0 && line[0] == command.first) ||
           (command.keyword != nullptr && KeywordMatches(command.keyword, line));
}

static After ActOn(const std::string& line) {
    for (const SearchCommand& command : SearchCommands) {
        if (Matches(command, line))
            return command.act(line);
    }
    return HasMoveShape(line) ? TakeTypedMove(line) : After::NEXT_LINE;
}

// At the end of input the predicted move cannot come any more, and a search whose interface has
// died would keep the processor busy for nobody. Other searches go on: output that still has a
// reader may belong to someone who has sent all that he wanted to.
static void ActOnEndOfInput() {
    if (Interrupts.PonderingOnPrediction || Abandoned())
        Running.StopSearch = Interrupts.ExitRequested = true;
}

// Takes the next line if a whole one waits.
static bool TakeWaitingLine(std::string& line) {
    if (!ReadWaitingInput())
        ActOnEndOfInput();
    return TakeLine(line);
}

void HandleSearchCommands() {
    std::string line;
    while (TakeWaitingLine(line)) {
        if (ActOn(line) == After::RETURN)
            return;
    }
}
