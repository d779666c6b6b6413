// The command interpreter: one table of keywords for every dialect.
#pragma once

#include <string>

// Runs the first command of the table whose keyword matches the text, and those after it that a
// command falls through to. A text that matches nothing is ignored.
void Dispatch(const std::string& text);

// Reads lines and runs them for ever; the process ends through a command. At the end of input it
// goes on waiting, asleep.
[[noreturn]] void RunCommandLoop();
