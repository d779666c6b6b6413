#include "companions/shared/command_line.h"

#include <cstdio>
#include <string>
#include <vector>

#include "platform/version.h"

// What the user has begun to type: the program's name, and the command's where one was given.
static std::string BegunLine(const CLI::App& program) {
    std::string line = program.get_name();
    for (const CLI::App* const command : program.get_subcommands())
        line += " " + command->get_name();
    return line;
}

// What is not known at all is told before what else may be wrong or missing because of it.
static std::string Complaint(const CLI::App* program, const CLI::Error& error) {
    std::string problem = error.what();
    if (const std::vector<std::string> unknown = program->remaining(true); !unknown.empty())
        problem = "\"" + unknown.front() + "\" is not known here";
    return program->get_name() + ": " + problem + "\nSee " + BegunLine(*program) + " --help\n";
}

std::optional<int> ReadCommandLine(CLI::App& program, int argc, char** argv) {
    program.set_version_flag("--version", program.get_name() + " " + VERSION);
    program.failure_message(Complaint);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        // Help and the version end the reading as errors do, with status 0.
        return program.exit(end) == 0 ? 0 : BAD_USAGE;
    }
    return std::nullopt;
}
