// Builds, merges, checks and shows opening books.
#include <cstdio>
#include <cstring>

#include "board/attacks.h"
#include "board/keys.h"
#include "commands.h"
#include "eval/derived_tables.h"
#include "platform/clock.h"

namespace {

constexpr int USAGE_STATUS = 2;

constexpr const Command* Commands[] = {&BuildCommand, &MergeCommand,  &DumpCommand,
                                       &CheckCommand, &SurveyCommand, &RandomCommand};

} // namespace

static void StartBoard() {
    StartClock();
    InitAttackTables();
    InitKeys();
    InitDerivedTables();
}

static const Command* FindCommand(const char* name) {
    for (const Command* const command : Commands) {
        if (std::strcmp(command->name, name) == 0)
            return command;
    }
    return nullptr;
}

static void PrintHelp() {
    std::puts("Usage: tarquelin-book COMMAND [OPTION | FILE]...\n");
    for (const Command* const command : Commands)
        std::printf("  %-7s %-26s %s\n", command->name, command->operands, command->summary);
    std::puts("\ntarquelin-book COMMAND --help tells the options of a command.");
}

static void PrintCommandHelp(const Command& command) {
    std::printf("Usage: tarquelin-book %s [OPTION]... %s\n%s.\n", command.name, command.operands,
                command.summary);
    if (!command.options.empty())
        std::puts("");
    PrintOptions(command.options);
}

int BadUsage(const Command& command, const char* problem) {
    std::fprintf(stderr, "%s. See tarquelin-book %s --help\n", problem, command.name);
    return USAGE_STATUS;
}

static bool AsksForHelp(std::span<const char* const> words) {
    for (const char* const word : words) {
        if (std::strcmp(word, "--help") == 0)
            return true;
    }
    return false;
}

static int RunCommand(const Command& command, std::span<const char* const> words) {
    if (AsksForHelp(words)) {
        PrintCommandHelp(command);
        return 0;
    }
    Files files;
    if (!ReadArguments(words, command.options, files))
        return USAGE_STATUS;
    StartBoard();
    return command.run(files);
}

int main(int argc, char** argv) {
    const std::span<const char* const> words(argv, size_t(argc));
    const Command* const command = argc > 1 ? FindCommand(words[1]) : nullptr;
    if (command != nullptr)
        return RunCommand(*command, words.subspan(2));
    PrintHelp();
    return argc > 1 && std::strcmp(words[1], "--help") == 0 ? 0 : USAGE_STATUS;
}
