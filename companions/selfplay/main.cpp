// Plays games of the engine against itself for a fit of its evaluation, and has their positions
// judged by a stronger engine.
#include <algorithm>
#include <charconv>
#include <functional>
#include <optional>
#include <string>
#include <thread>

#include "commands.h"
#include "companions/shared/command_line.h"

namespace {

constexpr int MOST_THREADS = 1024;
constexpr int MOST_EVERY = 1000000;
constexpr int MOST_NODES = 1000000000;
constexpr uint64_t MOST_GAMES = 10000000; // of one run, months of it

using Job = std::function<int()>;

} // namespace

// A number that the help shows with its unit and what it is without the option.
static void AddNumber(CLI::App& command, const char* name, int& number, int low, int high,
                      const char* unit, const char* help) {
    const std::string text = unit + std::string(" [") + std::to_string(number) + "]";
    command.add_option(name, number, help)->option_text(text)->check(CLI::Range(low, high));
}

static void AddThreads(CLI::App& command, int& threads) {
    threads = std::clamp(int(std::thread::hardware_concurrency()), 1, MOST_THREADS);
    AddNumber(command, "--threads", threads, 1, MOST_THREADS, "N",
              "how many processes work at the same time");
}

// Reads "1-50000".
static void ReadRange(const std::string& text, PlaySettings& settings) {
    const char* const end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, settings.firstSeed);
    if (first.ec == std::errc() && first.ptr != end && *first.ptr == '-') {
        const auto last = std::from_chars(first.ptr + 1, end, settings.lastSeed);
        if (last.ec == std::errc() && last.ptr == end && settings.firstSeed <= settings.lastSeed &&
            settings.lastSeed - settings.firstSeed < MOST_GAMES)
            return;
    }
    throw CLI::ValidationError(
        "--seeds", "\"" + text + "\" is no range like 1-50000 of 10 million seeds at most");
}

static void AddPlay(CLI::App& program, PlaySettings& settings, Job& job) {
    CLI::App& command = *program.add_subcommand("play", "Plays games and writes their positions");
    command.callback([&] { job = [&] { return PlayGames(settings); }; });
    command
        .add_option_function<std::string>(
            "--seeds", [&settings](const std::string& text) { ReadRange(text, settings); },
            "a game is played for each; needed")
        ->option_text("FROM-TO")
        ->required();
    command.add_option("--output", settings.output, "what the positions are added to; needed")
        ->option_text("FILE")
        ->required();
    AddNumber(command, "--nodes", settings.game.nodes, 1, MOST_NODES, "N", "searched for a move");
    AddNumber(command, "--every", settings.game.every, 1, MOST_EVERY, "N",
              "of the quiet positions of a game one in so many is written");
    AddThreads(command, settings.threads);
    command.add_option("--values", settings.values, "parameters of the evaluation")
        ->option_text("FILE [values.txt]");
    command.add_option("--openings", settings.openings, "lists of opening lines")
        ->option_text("DIRECTORY [" + settings.openings + "]");
}

static void AddJudge(CLI::App& program, JudgeSettings& settings, Job& job) {
    CLI::App& command = *program.add_subcommand(
        "judge", "Replaces the scores by those of another engine; drops mates and captures");
    command.callback([&] { job = [&] { return JudgePositions(settings); }; });
    command.add_option("POSITIONS", settings.positions, "what \"play\" has written")
        ->option_text(" ")
        ->required();
    command.add_option("--output", settings.output, "what the positions are added to; needed")
        ->option_text("FILE")
        ->required();
    command.add_option("--engine", settings.engine, "a program that speaks UCI; needed")
        ->option_text("PROGRAM")
        ->required();
    AddNumber(command, "--nodes", settings.nodes, 1, MOST_NODES, "N", "searched for a position");
    AddThreads(command, settings.threads);
}

int main(int argc, char** argv) {
    CLI::App program("Plays games of the engine against itself, for fits of its evaluation.",
                     "tarquelin-selfplay");
    PlaySettings play;
    Job job;
    JudgeSettings judge;
    AddPlay(program, play, job);
    AddJudge(program, judge, job);
    program.require_subcommand(1);
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    return job();
}
