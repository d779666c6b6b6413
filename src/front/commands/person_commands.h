// The commands of a person at a terminal that nobody else needs.
#pragma once

#include "front/input/command_line.h"

// Plays the move that is written in algebraic notation, and lets the engine answer.
void EnterSan(const CommandLine& line);

void ShowEvalTable(const CommandLine& line);
void SetStrength(const CommandLine& line);
void SaveGameFile(const CommandLine& line);
void LoadGameFile(const CommandLine& line);
