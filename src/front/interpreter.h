// The command interpreter: one table of keywords for every dialect and every state of the engine.
#pragma once

#include <string>

// Runs the first command of the table that the text matches and that is heard in the present state,
// and those after it that a command falls through to. A text that matches nothing is ignored.
void Dispatch(const std::string& text);

// Acts on the lines that wait while a search runs, or analysis waits for something to do, until one
// of them settles what happens next.
void ActOnInput();

// Reads lines and runs them for ever; the process ends through a command. At the end of input it
// goes on waiting, asleep, or ends, as its manners are.
[[noreturn]] void RunCommandLoop();
