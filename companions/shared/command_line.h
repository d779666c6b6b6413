// The command line of a companion, as far as all have it in common.
#pragma once

#include <optional>

#include <CLI/CLI.hpp>

constexpr int BAD_USAGE = 2; // exit status for a command line that makes no sense

// Reads the words into what the program has said that it takes, to which this adds --version.
// Nothing when the program is to go on; else the status to end with at once: 0 when help or the
// version was asked for, BAD_USAGE, after a message, when a word is unknown, missing or senseless.
std::optional<int> ReadCommandLine(CLI::App& program, int argc, char** argv);
