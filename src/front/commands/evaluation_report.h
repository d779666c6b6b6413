// The command that shows the static evaluation with its terms.
#pragma once

#include "front/input/command_line.h"

// Evaluates the position, the side to move being the one whose king is the engine's own, and prints
// score and figures.
void ShowEvaluation(const CommandLine& line);
