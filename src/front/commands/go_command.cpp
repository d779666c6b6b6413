#include "front/commands/go_command.h"

#include <algorithm>
#include <string>

#include "board/notation.h"
#include "board/position.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/game/manners.h"
#include "front/input/clocks.h"
#include "front/input/keyword.h"
#include "search/limits.h"

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
    const Manners* only = nullptr; // null: it is known in all manners
};

constexpr int32_t MOST_MATE_MOVES = 100;

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
    {"mate", [](int32_t n) { Limits.MateLimit = std::clamp(n, 0, MOST_MATE_MOVES); }, &Modern},
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
        if (!KeywordMatches(parameter.keyword, word) ||
            (parameter.only != nullptr && parameter.only != Manner))
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
