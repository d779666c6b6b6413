#include "front/commands/commands.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "board/board_view.h"
#include "board/legal_moves.h"
#include "board/notation.h"
#include "board/order_tables.h"
#include "board/perft.h"
#include "book/book.h"
#include "book/book_choice.h"
#include "book/book_keys.h"
#include "book/book_learning.h"
#include "front/commands/analysis.h"
#include "front/commands/edit_board.h"
#include "front/commands/help.h"
#include "front/commands/search_commands.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/play_settings.h"
#include "front/game/shutdown.h"
#include "front/input/clocks.h"
#include "front/input/input_lines.h"
#include "platform/clock.h"
#include "platform/signals.h"
#include "platform/standard_streams.h"
#include "search/driver_state.h"
#include "search/hash_memory.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/pruning_margins.h"
#include "search/root.h"
#include "search/state.h"
#include "tablebase/tablebases.h"

static void PrintLine(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

void QuitProgram(const CommandLine&) {
    EndProgram();
}

void CleanTables(const CommandLine&) {
    ClearAllHashTables();
    ClearPlyStates();
    ClearHistory();
    ClearEvasionReplies();
    ClearCaptureStats();
    ForgetLastScore();
}

void PlayTypedMove(const CommandLine& line) {
    const Move move = MoveFromText(line.text);
    if (!IsLegal(move)) {
        std::printf("Illegal move: %s\n", line.text.c_str());
        std::fflush(stdout);
        return;
    }
    PlayMove(move);
    if (Game.ForceMode)
        return;
    Limits.GoPonder = false;
    Limits.SearchMoveCount = 0;
    AnswerByClock();
    TakeTurn();
}

void ShowHelpPages(const CommandLine&) {
    ShowHelp();
}

void StartNewGame(const CommandLine&) {
    NewGame();
}

void PostOn(const CommandLine&) {
    Interface.PostThinking = true;
}

void PostOff(const CommandLine&) {
    Interface.PostThinking = false;
}

// A game that nothing was learned from counts as a draw for the engine's moves.
static void LearnUnfinishedGame() {
    if (!MayLearnBook() || Ply <= SetupPly || SideToMove == Game.EngineSide)
        return;
    TakeBack(1);
    LearnBook(BOOK_DRAWN);
}

void ResetGame(const CommandLine&) {
    LearnUnfinishedGame();
    BeginLearningAnew();
    ClearHistory();
    ClearPlyStates();
    ForgetLastScore();
}

void SetLevel(const CommandLine& line) {
    Clock.MovesToGo = false;
    Clock.MovesPerPeriod = line.Number(1, Clock.MovesPerPeriod);
    if (line.Arguments() >= 4) {
        Clock.BaseTime = Hundredths(line.Number(2) * int64_t{60} + line.Number(3), 100);
        Clock.OwnIncrement = Clock.OpponentIncrement = Hundredths(line.Number(4), 100);
        return;
    }
    if (line.Arguments() >= 2)
        Clock.BaseTime = Hundredths(line.Number(2), 6000);
    if (line.Arguments() >= 3)
        Clock.OwnIncrement = Clock.OpponentIncrement = Hundredths(line.Number(3), 100);
}

void ShowMoves(const CommandLine&) {
    std::printf("-------------- Legal moves: ----------------\n");
    Limits.SearchMoveCount = 0;
    PrepareRoot();
    for (int i = 0; i < Root.count; i++)
        std::printf("%s (%d); ", MoveText(RootMove(i)).c_str(), Root.moves[i].orderScore);
    std::printf("\n");
    std::fflush(stdout);
}

void EnterEdit(const CommandLine&) {
    EditBoard();
}

void LoadPosition(const CommandLine& line) {
    constexpr size_t fenOffset = 8; // the keyword and one blank
    SetUpFen(line.text.size() > fenOffset ? line.text.c_str() + fenOffset : "");
}

void RunPerft(const CommandLine& line) {
    if (line.Arguments() < 1 || line.Number(1) < 1)
        return;
    // Timing begins on the edge of a tick.
    const int64_t tick = ClockMilliseconds();
    int64_t start = tick;
    while (start == tick)
        start = ClockMilliseconds();
    // Nothing else ends a count that nobody waits for any more.
    constexpr auto wanted = [] { return !OutputAbandoned(); };
    const uint64_t leaves = CountPerft(std::min(line.Number(1), MAX_PERFT_DEPTH), wanted);
    if (!wanted())
        return;
    std::printf("total moves = %" PRIu64 " time = %.2f\n", leaves,
                double(ClockMilliseconds() - start) / 1000.0);
    std::fflush(stdout);
}

void SetDepth(const CommandLine& line) {
    Limits.DepthLimit = line.Number(1, Limits.DepthLimit);
}

template <int Band> void SetPruneMargin(const CommandLine& line) {
    PruneBands[Band].margin = line.Number(1, PruneBands[Band].margin);
}
template <int Band> void SetPruneCoefficient(const CommandLine& line) {
    PruneBands[Band].coefficient = line.Number(1, PruneBands[Band].coefficient);
}
template void SetPruneMargin<0>(const CommandLine&);
template void SetPruneMargin<1>(const CommandLine&);
template void SetPruneMargin<2>(const CommandLine&);
template void SetPruneCoefficient<0>(const CommandLine&);
template void SetPruneCoefficient<1>(const CommandLine&);
template void SetPruneCoefficient<2>(const CommandLine&);

void SetMoveTime(const CommandLine& line) {
    if (line.Arguments() >= 1)
        Limits.FixedTime = Hundredths(line.Number(1), 100);
}

static void SetClock(Colour side, int32_t milliseconds) {
    const int32_t time = RemainingTime(milliseconds / 10);
    if (side == SideToMove)
        Clock.OwnTime = Clock.BaseTime = time;
    else
        Clock.OpponentTime = time;
}

static void SetIncrement(Colour side, int32_t milliseconds) {
    (side == SideToMove ? Clock.OwnIncrement : Clock.OpponentIncrement) = milliseconds / 10;
}

namespace {

// A parameter of `go` that takes a number.
struct GoParameter {
    const char* keyword;
    void (*set)(int32_t number);
};

constexpr GoParameter GoParameters[] = {
    {"wtime", [](int32_t n) { SetClock(WHITE, n); }},
    {"btime", [](int32_t n) { SetClock(BLACK, n); }},
    {"winc", [](int32_t n) { SetIncrement(WHITE, n); }},
    {"binc", [](int32_t n) { SetIncrement(BLACK, n); }},
    {"movestogo",
     [](int32_t n) {
         Clock.MovesPerPeriod = n;
         Clock.MovesToGo = true;
     }},
    {"depth", [](int32_t n) { Limits.DepthLimit = n; }},
    {"nodes", [](int32_t n) { Limits.NodeLimit = n; }},
    // A move time that was given, however short, is not "no fixed time".
    {"movetime", [](int32_t n) { Limits.FixedTime = std::max(n / 10, 1); }},
};

} // namespace

// Every later token that looks like a move restricts the search. What stands between and behind
// the moves is read like any other parameter.
static void ReadSearchMoves(const CommandLine& line, int first) {
    for (int i = first; i <= line.Arguments(); i++) {
        const std::string& text = line.tokens[size_t(i)].text;
        if (HasMoveShape(text) && Limits.SearchMoveCount < MAX_SEARCH_MOVES)
            Limits.SearchMoves[Limits.SearchMoveCount++] = MoveFromText(text);
    }
}

// Reads the parameter that begins at argument `i` and returns how many tokens it took.
static int ReadGoParameter(const CommandLine& line, int i) {
    const std::string& word = line.tokens[size_t(i)].text;
    for (const GoParameter& parameter : GoParameters) {
        if (!KeywordMatches(parameter.keyword, word))
            continue;
        if (i < line.Arguments())
            parameter.set(line.Number(i + 1));
        return 2;
    }
    if (KeywordMatches("infinite", word))
        Clock.OwnTime = INFINITE_TIME;
    else if (KeywordMatches("ponder", word))
        Limits.GoPonder = true;
    return 1;
}

void Go(const CommandLine& line) {
    Game.ForceMode = Limits.GoPonder = false;
    Limits.SearchMoveCount = 0;
    AnswerByClock();
    // Parameters are all that the search is told.
    if (line.Arguments() > 0) {
        Clock = {.BaseTime = Clock.BaseTime};
        Limits = {};
    }
    bool movesRead = false;
    for (int i = 1; i <= line.Arguments();) {
        // A second keyword of the kind has nothing to add.
        if (!movesRead && KeywordMatches("searchmoves", line.tokens[size_t(i)].text)) {
            ReadSearchMoves(line, i + 1);
            movesRead = true;
        }
        i += ReadGoParameter(line, i);
    }
    TakeTurn();
}

static void SetTurn(Colour side) {
    GiveTurn(side);
    Game.EngineSide = ChangeSide(side);
}

void SetWhite(const CommandLine&) {
    SetTurn(WHITE);
}

void SetBlack(const CommandLine&) {
    SetTurn(BLACK);
}

void RemoveMoves(const CommandLine&) {
    TakeBack(2);
}

void UndoMove(const CommandLine&) {
    TakeBack(1);
}

void ForceOn(const CommandLine&) {
    Game.ForceMode = true;
}

void Analyse(const CommandLine&) {
    AnalyseGame();
}

void ShowBoard(const CommandLine&) {
    PrintBoard();
}

void ShowFlags(const CommandLine&) {
    std::printf("castling flags = %d\n", CastleRights);
    std::fflush(stdout);
}

void SetOwnTime(const CommandLine& line) {
    if (line.Arguments() >= 1)
        Clock.OwnTime = RemainingTime(line.Number(1));
}

void SetOpponentTime(const CommandLine& line) {
    if (line.Arguments() >= 1)
        Clock.OpponentTime = RemainingTime(line.Number(1));
}

void PonderOff(const CommandLine&) {
    Interface.PonderNow = false;
}

void PonderOn(const CommandLine&) {
    if (PlayOptions.Pondering)
        Interface.PonderNow = true;
}

void EnterPartnerMode(const CommandLine&) {
    Interface.PartnerMode = true;
}

void EnterXboard(const CommandLine&) {
    Limits = {.GoPonder = Limits.GoPonder};
    Clock.MovesPerPeriod = 0;
    Interface.UciMode = false;
    SearchOptions.ForgetInShortSearches = false;
    Interface.PonderNow = PlayOptions.Pondering;
    IgnoreInterrupts();
}

void PlayDemo(const CommandLine&) {
    const bool ponderNow = Interface.PonderNow;
    Interface.PonderNow = false;
    NewGame();
    Limits.GoPonder = false;
    Limits.SearchMoveCount = 0;
    AnswerByClock();
    Interrupts = {};
    while (ThinkAndMove()) {
        // A drawn game goes on, with searches too short to look at their input.
        HandleSearchCommands();
        if (!MoveWanted() || Abandoned())
            break;
        Interrupts = {};
    }
    if (Interrupts.NewRequested)
        NewGame();
    Interface.PonderNow = ponderNow;
}

void ShowBookMoves(const CommandLine&) {
    const auto key = uint32_t(KeysOfPosition().a);
    std::printf("Current nhash1 = %d, nhash2 = %d\n", int(key & 0xffff), int(key >> 16));
    if (BookIsOpen())
        ListBookMoves();
    else
        PrintLine("No book loaded...");
}

void AnswerReady(const CommandLine&) {
    PrintLine("readyok");
}

void ShowTablebaseStatus(const CommandLine&) {
    std::printf("UseEGTB = %s", Tablebases.UseEgtb ? "TRUE" : "FALSE");
    std::printf("\ntb_path = %s\n", Tablebases.EgtbPath);
    PrintTablebaseCount();
}

void SetDebug(const CommandLine& line) {
    if (line.Arguments() < 1)
        return;
    if (KeywordMatches("on", line.tokens[1].text))
        Interface.DebugMode = true;
    else if (KeywordMatches("off", line.tokens[1].text))
        Interface.DebugMode = false;
}
