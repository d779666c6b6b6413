// The command that makes the engine think.
#pragma once

#include "front/input/command_line.h"

// Leaves force mode and takes the turn, within the limits that the line sets.
void Go(const CommandLine& line);
