// Builds, merges, checks and shows opening books.
#include <functional>
#include <optional>
#include <string>

#include "commands.h"
#include "companions/shared/command_line.h"
#include "companions/shared/engine_start.h"

namespace {

constexpr int LONGEST_LINE = 400; // plies
constexpr int MANY = 1000000000;
constexpr int MOST_POINTS = 254; // that a byte of the statistics holds

struct AllSettings {
    BuildSettings build;
    MergeSettings merge;
    DumpSettings dump;
    CheckSettings check;
    SurveySettings survey;
    RandomSettings random;
};

using Job = std::function<int()>;

} // namespace

// A command that, where it is given, becomes the job to be done.
template <typename Settings>
static CLI::App& AddCommand(CLI::App& program, const char* name, const char* help,
                            const Settings& settings, int (*run)(const Settings&), Job& job) {
    CLI::App& command = *program.add_subcommand(name, help);
    command.callback([&job, &settings, run] { job = [&settings, run] { return run(settings); }; });
    return command;
}

static CLI::Option& AddFile(CLI::App& command, const char* name, std::string& path,
                            const char* help) {
    return *command.add_option(name, path, help)->option_text("FILE");
}

static void AddOutput(CLI::App& command, std::string& path) {
    AddFile(command, "--output", path, "the book to be written; needed").required();
}

static void AddBook(CLI::App& command, std::string& path) {
    command.add_option("BOOK", path, "a book file")->required()->option_text(" ");
}

// A number that the help shows with its unit and what it is without the option.
static void AddNumber(CLI::App& command, const char* name, int& number, int low, int high,
                      const char* unit, const char* help) {
    const std::string text = unit + std::string(" [") + std::to_string(number) + "]";
    command.add_option(name, number, help)->option_text(text)->check(CLI::Range(low, high));
}

static SidesCounted SidesNamed(const std::string& side) {
    return side == "white" ? ONLY_WHITE : side == "black" ? ONLY_BLACK : BOTH_SIDES;
}

static void AddScore(CLI::App& command, const char* name, int& score, const char* help) {
    AddNumber(command, name, score, -HIGHEST_SCORE, HIGHEST_SCORE, "CP", help);
}

// Which moves of the sources are counted.
static void AddSourceRules(CLI::App& command, SourceRules& rules) {
    AddNumber(command, "--depth", rules.depth, 1, LONGEST_LINE, "PLIES", "of every game and line");
    command
        .add_option_function<std::string>(
            "--side", [&rules](const std::string& side) { rules.sides = SidesNamed(side); },
            "whose moves are counted: white, black or both")
        ->option_text("SIDE [both]")
        ->check(CLI::IsMember({"white", "black", "both"}));
    command.add_option("--player", rules.player, "count only moves of players so named")
        ->option_text("NAME");
    command.add_flag("--winner", rules.onlyWinner, "count only moves of the side that won");
}

static void AddMost(CLI::App& command, JudgementRules& rules) {
    AddNumber(command, "--most", rules.mostPoints, 1, MOST_POINTS, "HALFPOINTS",
              "scale statistics down to this");
}

// What becomes of moves by the games they were played in.
static void AddGameRules(CLI::App& command, JudgementRules& rules) {
    AddNumber(command, "--min-games", rules.minGames, 1, MANY, "N",
              "leave out moves played less often");
    AddNumber(command, "--min-position-games", rules.minPositionGames, 1, MANY, "N",
              "leave out positions met less often");
    AddNumber(command, "--min-score", rules.minScore, 0, 100, "PERCENT",
              "kill moves that have scored less");
    AddNumber(command, "--min-share", rules.minShare, 0, 100, "PERCENT",
              "kill moves played in a smaller share of the games");
    command.add_flag("--drop", rules.dropBad, "leave out what would be killed");
    AddMost(command, rules);
}

// And by what searches think of the positions behind them.
static void AddScoreRules(CLI::App& command, JudgementRules& rules) {
    AddNumber(command, "--prior", rules.priorPoints, 1, MOST_POINTS, "HALFPOINTS",
              "what a score counts like");
    AddNumber(command, "--ten-to-one", rules.tenToOne, 1, HIGHEST_SCORE, "CP",
              "the score of who gets ten points to one");
    AddScore(command, "--named-loss", rules.namedLoss,
             "kill moves that leave so much less than the best");
    AddScore(command, "--most-loss", rules.mostLoss,
             "kill rare moves that leave so much less than the best");
    AddNumber(command, "--named-games", rules.namedGames, 1, MANY, "N",
              "moves with fewer games or lines are rare");
    AddScore(command, "--rare-discount", rules.rareDiscount,
             "off a move each time it is half as frequent as usual");
    AddScore(command, "--worst-score", rules.worstScore,
             "kill rare moves that leave less than this");
    AddScore(command, "--bad-score", rules.badScore,
             "kill rare moves that leave less than this ...");
    AddScore(command, "--worst-loss", rules.worstLoss, "... and so much less than the best");
    command.add_flag("--keep-unknown", rules.keepUnknown,
                     "do not kill moves to positions without a score");
}

static void AddBuild(CLI::App& program, BuildSettings& settings, Job& job) {
    CLI::App& command =
        AddCommand(program, "build", "Makes a book from games (*.pgn) and lists of lines", settings,
                   BuildBook, job);
    AddOutput(command, settings.output);
    AddSourceRules(command, settings.rules);
    AddGameRules(command, settings.judgement);
    CLI::Option& weights = AddFile(command, "--weights", settings.weights,
                                   "searched positions, whose scores judge moves");
    AddScoreRules(command, settings.judgement);
    command
        .add_flag("--searched-moves", settings.addSearchedMoves,
                  "add best moves of, and moves between, searched positions")
        ->needs(&weights);
    command.add_option("SOURCE", settings.sources, "*.pgn: games; others: lists of lines")
        ->option_text("...");
    command.parse_complete_callback([&settings] {
        if (settings.sources.empty() && !settings.addSearchedMoves)
            throw CLI::RequiredError("SOURCE");
    });
}

static void AddMerge(CLI::App& program, MergeSettings& settings, Job& job) {
    CLI::App& command = AddCommand(program, "merge", "Adds the points of several books up",
                                   settings, MergeBooks, job);
    AddOutput(command, settings.output);
    AddMost(command, settings.judgement);
    command.add_option("BOOK", settings.books, "book files")->required()->option_text("...");
}

static void AddReaders(CLI::App& program, AllSettings& settings, Job& job) {
    CLI::App& dump = AddCommand(program, "dump", "Shows the positions with their moves",
                                settings.dump, DumpBook, job);
    AddBook(dump, settings.dump.book);
    dump.add_flag("--records", settings.dump.records,
                  "show the records of the file instead, in their order");
    CLI::App& check = AddCommand(program, "check", "Looks for damage; fails when there is any",
                                 settings.check, CheckBook, job);
    check.add_option("FILE", settings.check.book, "a book, or a file of learned positions")
        ->required()
        ->option_text(" ");
}

static void AddSurvey(CLI::App& program, SurveySettings& settings, Job& job) {
    CLI::App& command =
        AddCommand(program, "survey", "Shows what the engine would play, and the worst of it",
                   settings, SurveyBook, job);
    AddBook(command, settings.book);
    AddFile(command, "--weights", settings.weights,
            "searched positions: tells the worst that the book leads to");
    AddNumber(command, "--variety", settings.variety, 0, 100, "PERCENT",
              "how freely the engine chooses");
    AddNumber(command, "--worst", settings.worst, 0, MANY, "N",
              "how many of the worst positions are shown");
}

static void AddRandom(CLI::App& program, RandomSettings& settings, Job& job) {
    CLI::App& command =
        AddCommand(program, "random", "Makes a book of random games, for tests of speed", settings,
                   MakeRandomBook, job);
    AddOutput(command, settings.output);
    AddNumber(command, "--moves", settings.moves, 1, MANY / 10, "N",
              "how many; nearly each in a position of its own");
    AddNumber(command, "--seed", settings.seed, 0, MANY, "N", "of the random numbers");
}

int main(int argc, char** argv) {
    CLI::App program("Builds, merges, checks and shows opening books.", "tarquelin-book");
    AllSettings settings;
    Job job;
    AddBuild(program, settings.build, job);
    AddMerge(program, settings.merge, job);
    AddReaders(program, settings, job);
    AddSurvey(program, settings.survey, job);
    AddRandom(program, settings.random, job);
    program.require_subcommand(1);
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    StartTables();
    return job();
}
