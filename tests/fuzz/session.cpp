// Whole sessions: lines in all three dialects, arriving at once or while a search of few nodes
// runs.
#include "fuzz.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

#include "front/dialects/console.h"
#include "front/game/activity.h"
#include "front/game/dialect.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/manners.h"
#include "front/game/shutdown.h"
#include "front/input/input_lines.h"
#include "front/interpreter.h"
#include "front/search_host.h"
#include "front/settings/options.h"
#include "search/driver_state.h"
#include "search/hash_memory.h"
#include "search/host.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"

namespace {

constexpr int NODES = 200;        // of a search, and between two looks at the input
constexpr int MOST_SEARCHES = 30; // of a session
constexpr int SMALL_HASH = 1 << 12;

struct SessionEnded {};

constinit int Searches = 0;
constinit void (*AnnounceDraw)() = nullptr; // the engine's own

} // namespace

// Stands in the place of the one that ends the process.
void EndProgram() {
    throw SessionEnded();
}

// A session that goes on searching by itself is told that the game is over.
static void HandleInput() {
    ActOnInput();
    if (Searches > MOST_SEARCHES)
        Running.StopSearch = Interrupts.NewRequested = Interrupts.ExitRequested = true;
}

// Comes at the beginning of every search.
static void LimitSearch() {
    Searches++;
    Limits.NodeLimit = Limits.NodeLimit > 0 ? std::min(Limits.NodeLimit, NODES) : NODES;
    Budget.PollReload = Running.PollCountdown = NODES;
    AnnounceDraw();
}

static void StartAnew(bool modern) {
    InstallSearchHost();
    Host.handleInput = HandleInput;
    AnnounceDraw = Host.announceDraw;
    Host.announceDraw = LimitSearch;
    Searches = 0;
    Interface = {};
    Clock = {};
    Limits = {};
    SearchOptions = {};
    Interrupts = {};
    Running = {};
    Past = {};
    Root.count = 0;
    Game.Pause = {};
    Game.Reply = nullptr;
    CurrentActivity = IDLE;
    Speaking = &ConsoleDialect;
    SetDefaultSettings();
    UseManners(modern ? Modern : Classic);
    BeginNewGame();
    Game.ForceMode = false;
}

// Lines that do much for little: a table of a gigabyte, a count of billions of positions.
static std::string Tamed(std::string line) {
    size_t begin = std::min(line.find_first_not_of(" \r"), line.size());
    std::string head = line.substr(begin, 2);
    std::ranges::transform(head, head.begin(), [](unsigned char c) { return std::tolower(c); });
    const char highest = head == "pe" ? '2' : '9';
    if (head != "se" && head != "me" && head != "pe")
        return line;
    bool afterDigit = false;
    std::string tamed;
    for (const char c : line) {
        const bool digit = c >= '0' && c <= '9';
        if (!digit || !afterDigit)
            tamed += digit ? std::min(c, highest) : c;
        afterDigit = digit;
    }
    return tamed;
}

static void FeedInput(std::string_view input) {
    std::string text;
    while (!input.empty()) {
        const std::string_view line = input.substr(0, input.find('\n'));
        text += Tamed(std::string(line)) + "\n";
        input.remove_prefix(std::min(line.size() + 1, input.size()));
    }
    PutFile("session", text);
    const int file = open("session", O_RDONLY);
    Claim(file >= 0 && dup2(file, STDIN_FILENO) == STDIN_FILENO, "a file can be the input");
    close(file);
}

void Try(std::string_view input) {
    StartAnew((TakeByte(input) & 1) != 0);
    FeedInput(input);
    std::string line;
    try {
        while (NextLine(line)) {
            Dispatch(line);
            ResumePondering();
        }
        ClaimSoundPosition();
    } catch (const SessionEnded&) {
        // What is left is no input of the next session.
        while (NextLine(line)) {
        }
    }
    if (TranspositionCount != SMALL_HASH || PawnHashCount != SMALL_HASH) {
        TranspositionCount = PawnHashCount = SMALL_HASH;
        AllocateHashTables();
    }
}
