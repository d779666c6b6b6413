// Lets an engine play against itself under the clock, over pipes as its users' programs do, and
// looks for whatever goes wrong.
#include <algorithm>
#include <cinttypes>
#include <climits>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "busy.h"
#include "companions/processes/stop.h"
#include "companions/processes/workers.h"
#include "companions/shared/command_line.h"
#include "companions/shared/engine_start.h"
#include "companions/shared/opening_lines.h"
#include "companions/shared/progress.h"
#include "companions/shared/text_lines.h"
#include "game.h"

namespace {

constexpr int MANY = 1000000000;
constexpr int MOST_AT_ONCE = 256;

struct Settings {
    MatchSettings match;
    std::string protocols = "both";
    std::vector<std::string> lines; // of the settings file
    std::string openings = "data/openings";
    std::string starts;
    std::string pgn;
    int games = 100;
    int atOnce = 2;
    int busy = 0;
    int seed = 1;
};

// What all games had.
struct Totals {
    int games = 0;
    int64_t plies = 0;
    int leastLeft = INT_MAX;
    std::map<std::string, int> results;
    std::map<std::string, int> faults;
};

using Starts = std::function<GameStart(uint64_t)>;

} // namespace

// A part of a random opening line.
static GameStart StartOfLine(const OpeningLines& openings, uint64_t seed) {
    std::mt19937_64 numbers{seed};
    std::vector<Move> moves = openings[size_t(numbers() % openings.Count())];
    moves.resize(size_t(numbers() % (moves.size() + 1)));
    return {"", moves};
}

// False, with a message, when a line is no position.
static bool ReadStarts(const std::string& path, std::vector<GameStart>& starts) {
    LineReader reader;
    if (!reader.Open(path.c_str()))
        return false;
    for (std::string line; reader.Next(line);) {
        if (line.empty() || line.starts_with('#'))
            continue;
        starts.emplace_back();
        if (!ReadStart(line, starts.back())) {
            std::fprintf(stderr, "%s, line %d: no position to play from\n", path.c_str(),
                         reader.Number());
            return false;
        }
    }
    if (starts.empty())
        std::fprintf(stderr, "%s: there are no positions\n", path.c_str());
    return !starts.empty();
}

static void TellFault(const GameReport& report, uint64_t number) {
    const std::string path = "clock-" + std::to_string(number + 1) + ".log";
    std::ofstream(path, std::ios::binary) << report.details;
    ClearProgressLine();
    std::printf("game %" PRIu64 ": %s: %s (%s)\n", number + 1, report.fault.c_str(),
                report.details.substr(0, report.details.find('\n')).c_str(), path.c_str());
    std::fflush(stdout);
}

static void Add(const GameReport& report, Totals& totals) {
    totals.games++;
    totals.plies += report.plies;
    totals.leastLeft = std::min(totals.leastLeft, report.leastLeft);
    totals.results[report.result]++;
    if (!report.fault.empty())
        totals.faults[report.fault]++;
}

static void Tell(Totals& totals) {
    ClearProgressLine();
    std::printf("%d games of %d plies on average: %d won by White, %d drawn, %d won by Black; "
                "%d ms left at least\n",
                totals.games, int(totals.plies / std::max(totals.games, 1)), totals.results["1-0"],
                totals.results["1/2-1/2"], totals.results["0-1"], totals.leastLeft);
    for (const auto& [fault, count] : totals.faults)
        std::printf("%s: %d\n", fault.c_str(), count);
    if (totals.faults.empty())
        std::printf("no fault\n");
}

// The exit status.
static int PlayAll(const Settings& settings, const Starts& startOf) {
    NoteStopSignals();
    Table table(settings.match);
    Workers workers(settings.atOnce, uint64_t(settings.games),
                    [&](uint64_t i) { return WriteReport(table.Play(i, startOf(i))); });
    const BusyProcesses busy(settings.busy);
    std::ofstream pgn;
    if (!settings.pgn.empty())
        pgn.open(settings.pgn, std::ios::binary);
    Progress progress("games", uint64_t(settings.games), "games");
    Totals totals;
    while (workers.Started() && totals.games < settings.games && StopSignal() == 0) {
        progress.Tell(uint64_t(totals.games), uint64_t(totals.games));
        if (const std::optional<std::string> text = workers.Next()) {
            const GameReport report = ReadReport(*text);
            if (!report.fault.empty())
                TellFault(report, uint64_t(totals.games));
            pgn << report.pgn << std::flush;
            Add(report, totals);
        } else if (workers.HaveFailed()) {
            std::fprintf(stderr, "A process has ended before its games were played\n");
            return 1;
        }
    }
    Tell(totals);
    return totals.faults.empty() && totals.games == settings.games ? 0 : 1;
}

static int Run(Settings& settings) {
    for (const std::string& line : settings.lines)
        settings.match.player.settings += line + "\n";
    if (settings.protocols != "both")
        settings.match.first = settings.match.second =
            settings.protocols == "uci" ? Protocol::UCI : Protocol::XBOARD;
    if (settings.protocols != "uci" && settings.match.control.moveTime % 1000 != 0) {
        std::fprintf(stderr, "The xboard protocol knows whole seconds for a move only\n");
        return BAD_USAGE;
    }
    StartTables();
    const auto seed = uint64_t(settings.seed);
    if (!settings.starts.empty()) {
        std::vector<GameStart> starts;
        if (!ReadStarts(settings.starts, starts))
            return 1;
        return PlayAll(settings, [&](uint64_t i) { return starts[(seed + i) % starts.size()]; });
    }
    OpeningLines openings;
    if (!openings.Read(settings.openings))
        return 1;
    return PlayAll(settings, [&](uint64_t i) { return StartOfLine(openings, seed + i); });
}

static void AddNumber(CLI::App& command, const char* name, int& number, int least, int most,
                      const char* unit, const char* help) {
    const std::string text = unit + std::string(" [") + std::to_string(number) + "]";
    command.add_option(name, number, help)->option_text(text)->check(CLI::Range(least, most));
}

static void AddPath(CLI::App& command, const char* name, std::string& path, const char* help) {
    const std::string text = path.empty() ? "PATH" : "PATH [" + path + "]";
    command.add_option(name, path, help)->option_text(text);
}

int main(int argc, char** argv) {
    CLI::App program("Lets an engine play against itself under the clock and looks for faults: "
                     "losses on time, illegal moves, false claims, silence. The conversation of a "
                     "game with one is written to clock-GAME.log.",
                     "tarquelin-clock");
    Settings settings;
    AddPath(program, "--engine", settings.match.player.engine, "the program");
    AddPath(program, "--data", settings.match.player.data, "what lies in its directory at start");
    program.add_option("--set", settings.lines, "a line for the end of its settings file")
        ->option_text("LINE ...");
    AddNumber(program, "--games", settings.games, 1, MANY, "N", "in all");
    AddNumber(program, "--at-once", settings.atOnce, 1, MOST_AT_ONCE, "N", "games");
    program
        .add_option_function<std::string>(
            "--time",
            [&settings](const std::string& text) {
                if (!ReadTimeControl(text, settings.match.control))
                    throw CLI::ValidationError("--time", "\"" + text + "\" is no time control");
            },
            "seconds: for the game + for each move; moves/seconds; move/seconds")
        ->option_text("TIME [1+0.01]")
        ->default_str("1+0.01")
        ->force_callback();
    program.add_option("--protocol", settings.protocols, "of the players")
        ->option_text("uci|xboard|both [both]")
        ->check(CLI::IsMember({"uci", "xboard", "both"}));
    program.add_flag("--ponder", settings.match.player.pondering,
                     "let them think on the other one's time");
    AddNumber(program, "--margin", settings.match.margin, 0, MANY, "MS",
              "beyond the clock that is not told");
    AddNumber(program, "--busy", settings.busy, 0, MOST_AT_ONCE, "N",
              "processes that keep the machine busy meanwhile");
    AddPath(program, "--openings", settings.openings, "a directory of opening lines");
    AddPath(program, "--starts", settings.starts,
            "positions to begin with instead, as UCI writes them: fen ... moves ...");
    AddNumber(program, "--seed", settings.seed, 0, MANY, "N", "of the openings");
    AddPath(program, "--pgn", settings.pgn, "where the games are written");
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    return Run(settings);
}
