// The commands that evaluate whole files of positions and games.
#pragma once

#include "front/input/command_line.h"

// Evaluates the EPD file whose name, blanks and all, follows the command word; nothing without one.
void EvaluateEpdFile(const CommandLine& line);

// Evaluates the games of "c:\work\source.pgn".
void EvaluatePgnFile(const CommandLine& line);
