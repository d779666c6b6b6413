// The console's help pages.
#pragma once

#include "front/input/command_line.h"

// Prints the first page, waits for a line, prints the second.
void ShowHelp(const CommandLine& line);
