#include "companions/shared/command_line.h"

#include <algorithm>
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

// The library reads numbers like constants of C, octal when they begin with 0. Here they are
// decimal and may have zeros before them. Returns what is wrong with the text.
static std::string MakeDecimal(std::string& text) {
    const size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    if (text.size() == sign || text.find_first_not_of("0123456789", sign) != std::string::npos)
        return "\"" + text + "\" is no number";
    const size_t zeros = std::min(text.find_first_not_of('0', sign), text.size() - 1) - sign;
    text.erase(sign, zeros);
    return "";
}

static void TakeDecimalNumbers(CLI::App& program) {
    for (CLI::Option* const option : program.get_options()) {
        const std::string type = option->get_type_name();
        if (type.starts_with("INT") || type.starts_with("UINT"))
            option->transform(CLI::Validator(MakeDecimal, ""));
    }
    for (CLI::App* const command : program.get_subcommands([](CLI::App*) { return true; }))
        TakeDecimalNumbers(*command);
}

std::optional<int> ReadCommandLine(CLI::App& program, int argc, char** argv) {
    program.set_version_flag("--version", program.get_name() + " " + VERSION);
    program.failure_message(Complaint);
    TakeDecimalNumbers(program);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        // Help and the version end the reading as errors do, with status 0.
        return program.exit(end) == 0 ? 0 : BAD_USAGE;
    }
    return std::nullopt;
}
