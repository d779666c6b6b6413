// The commands of the program, one source file each.
#pragma once

#include <span>

#include "arguments.h"

struct Command {
    const char* name;
    const char* operands;
    const char* summary;
    std::span<const Option> options;
    int (*run)(const Files& files); // the exit status
};

extern const Command BuildCommand;
extern const Command MergeCommand;
extern const Command DumpCommand;
extern const Command CheckCommand;
extern const Command SurveyCommand;
extern const Command RandomCommand;

// Says that a command line lacks something and returns the exit status for it.
int BadUsage(const Command& command, const char* problem);
