// The commands that print what the engine knows of the position and of its files.
#pragma once

#include "front/input/command_line.h"

void ShowBoard(const CommandLine& line);
void ShowFlags(const CommandLine& line);
void ShowMoves(const CommandLine& line);
void ShowBookMoves(const CommandLine& line);
void ShowTablebaseStatus(const CommandLine& line);
void RunPerft(const CommandLine& line);
