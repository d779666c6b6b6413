// Makes, checks and shows endgame tablebases.
//
//     tarquelin-tb build tablebases
//
// makes all tables of three and four men, which are, byte for byte, the published ones.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <new>
#include <optional>
#include <string>
#include <thread>

#include "board/attacks.h"
#include "commands.h"
#include "companions/shared/command_line.h"
#include "published.h"

namespace {

struct AllSettings {
    BuildSettings build;
    std::vector<std::string> classNames;
    ConvertSettings convert;
    std::filesystem::path shown; // directory
};

using Job = std::function<int()>;

} // namespace

static CLI::App& AddCommand(CLI::App& program, const char* name, const char* help, Job& job,
                            const Job& whatToDo) {
    CLI::App& command = *program.add_subcommand(name, help);
    command.callback([&job, whatToDo] { job = whatToDo; });
    return command;
}

static void AddDirectory(CLI::App& command, std::filesystem::path& directory) {
    command.add_option("DIRECTORY", directory, "with the tables")->required()->option_text(" ");
}

static void AddThreads(CLI::App& command, int& threads) {
    threads = std::clamp(int(std::thread::hardware_concurrency()), 1, MAX_THREADS);
    command.add_option("--threads", threads, "how many work at the same time")
        ->option_text("N [" + std::to_string(threads) + "]")
        ->check(CLI::Range(1, MAX_THREADS));
}

static std::vector<int> ClassNumbers(const std::vector<std::string>& names) {
    std::vector<int> numbers;
    for (const std::string& name : names) {
        const int number = FindTablebaseClass(std::string_view(name));
        if (!IsPublished(number))
            throw CLI::ValidationError(name + " is no class of three or four men");
        numbers.push_back(number);
    }
    return numbers;
}

static void AddBuild(CLI::App& program, AllSettings& settings, Job& job) {
    CLI::App& command = AddCommand(program, "build", "Makes tables; those that are there stay", job,
                                   [&settings] { return BuildTables(settings.build); });
    AddThreads(command, settings.build.threads);
    AddDirectory(command, settings.build.directory);
    command
        .add_option("CLASS", settings.classNames,
                    "these and those that they need: kqk, kqkr, ...; all when none is named")
        ->option_text("...");
    command.parse_complete_callback(
        [&settings] { settings.build.classes = ClassNumbers(settings.classNames); });
}

static void AddReaders(CLI::App& program, AllSettings& settings, Job& job) {
    AddDirectory(AddCommand(program, "verify",
                            "Compares tables with the checksums of the published ones", job,
                            [&settings] { return VerifyTables(settings.shown); }),
                 settings.shown);
    AddDirectory(AddCommand(program, "list",
                            "Tells for every table its size, results and longest mates", job,
                            [&settings] { return ListTables(settings.shown); }),
                 settings.shown);
}

static CLI::App& AddConverter(CLI::App& program, const char* name, const char* help,
                              ConvertSettings& settings, int (*convert)(const ConvertSettings&),
                              Job& job) {
    CLI::App& command =
        AddCommand(program, name, help, job, [&settings, convert] { return convert(settings); });
    AddDirectory(command, settings.directory);
    command.add_option("TARGET", settings.target, "where to write; else beside the others")
        ->option_text(" ");
    return command;
}

static int Run(int argc, char** argv) {
    CLI::App program("Makes, checks and shows endgame tablebases.", "tarquelin-tb");
    AllSettings settings;
    Job job;
    AddBuild(program, settings, job);
    AddReaders(program, settings, job);
    AddThreads(AddConverter(program, "compress",
                            "Writes tables about a fifth as long, for this program and the engine",
                            settings.convert, CompressTables, job),
               settings.convert.threads);
    AddConverter(program, "decompress", "Turns such compressed tables back into plain ones",
                 settings.convert, DecompressTables, job);
    program.require_subcommand(1);
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    InitAttackTables();
    return job();
}

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::fputs("Out of memory\n", stderr);
        return 1;
    }
}
