// The commands that set clocks and limits.
#pragma once

#include "front/input/command_line.h"

void SetLevel(const CommandLine& line);
void SetDepth(const CommandLine& line);
void SetMoveTime(const CommandLine& line);
void SetOwnTime(const CommandLine& line);
void SetOpponentTime(const CommandLine& line);

// The same two during a search, where the number begins at a fixed place.
void SetOwnClock(const CommandLine& line);
void SetOpponentClock(const CommandLine& line);
