// Annotates the games of a PGN file: what was doubtful, what was better, and a page to look at.
#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "annotate.h"
#include "companions/shared/command_line.h"

namespace {

constexpr int MOST_THREADS = 1024;
constexpr int MOST_NODES = 1000000000;
constexpr int MOST_DEPTH = 90;
constexpr double MOST_SECONDS = 86400;
// To find games, of which there may be many, small searches will do.
constexpr int NODES_TO_FIND = 5000;

} // namespace

// How long a position is searched: one of three ways, and nodes where nothing is said.
static const CLI::Option_group* AddLimit(CLI::App& program, Settings& settings) {
    SearchLimit& limit = settings.limit;
    auto* const ways = program.add_option_group("limit");
    ways->add_option_function<int>(
            "--nodes",
            [&](int n) {
                limit = {SearchLimit::NODES, n};
            },
            "searched for a position")
        ->option_text("N [" + std::to_string(limit.amount) + "]")
        ->check(CLI::Range(1, MOST_NODES));
    ways->add_option_function<int>(
            "--depth",
            [&](int n) {
                limit = {SearchLimit::DEPTH, n};
            },
            "plies searched for a position, in the place of nodes")
        ->option_text("N")
        ->check(CLI::Range(2, MOST_DEPTH));
    ways->add_option_function<double>(
            "--time",
            [&](double n) {
                limit = {SearchLimit::TIME, std::max(int(n * 1000), 1)};
            },
            "seconds for a position, in the place of nodes: no two runs are the same")
        ->option_text("SECONDS")
        ->check(CLI::Range(0.001, MOST_SECONDS));
    ways->require_option(0, 1);
    return ways;
}

// What is wrong with the beginning of a date.
static std::string CheckDate(std::string& text) {
    constexpr std::string_view form = "0000.00.00";
    bool fits = text.size() == 4 || text.size() == 7 || text.size() == form.size();
    for (size_t i = 0; i < text.size() && fits; i++)
        fits = form[i] == '.' ? text[i] == '.' : text[i] >= '0' && text[i] <= '9';
    return fits ? "" : "\"" + text + "\" is no date like 2024.05";
}

static void AddSelection(CLI::App& program, Selection& selection) {
    program.add_option("--from", selection.from, "only games of that date or later")
        ->option_text("YYYY[.MM[.DD]]")
        ->check(CLI::Validator(CheckDate, ""));
    program.add_option("--player", selection.player, "only games of who has this in the name")
        ->option_text("NAME");
    program.add_option("--result", selection.result, "only games that ended so")
        ->option_text("RESULT")
        ->check(CLI::IsMember({"1-0", "0-1", "1/2-1/2", "*"}));
    program.add_option("--eco", selection.eco, "only games whose ECO code begins so")
        ->option_text("CODE");
}

int main(int argc, char** argv) {
    CLI::App program("Annotates the games of a PGN file.", "tarquelin-annotate");
    Settings settings;
    program.add_option("GAMES", settings.games, "a PGN file")->option_text(" ")->required();
    program.add_option("--output", settings.output, "what the names of the new files begin with")
        ->option_text("NAME [GAMES without .pgn, -annotated]");
    const CLI::Option_group* const limit = AddLimit(program, settings);
    AddSelection(program, settings.selection);
    program.add_flag("--find", settings.find,
                     "print a line for each game to sort by and write nothing; " +
                         std::to_string(NODES_TO_FIND) + " nodes where no limit is told");
    settings.threads = std::clamp(int(std::thread::hardware_concurrency()), 1, MOST_THREADS);
    program.add_option("--threads", settings.threads, "how many processes work at the same time")
        ->option_text("N [" + std::to_string(settings.threads) + "]")
        ->check(CLI::Range(1, MOST_THREADS));
    program.add_option("--tables", settings.tablebases, "directories of endgame tablebases")
        ->option_text("DIRECTORIES");
    program.add_option("--values", settings.values, "parameters of the evaluation")
        ->option_text("FILE [those within the program]");
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    if (settings.find && limit->count_all() == 0)
        settings.limit.amount = NODES_TO_FIND;
    return AnnotateGames(settings);
}
