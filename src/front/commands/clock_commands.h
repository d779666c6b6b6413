// The commands that set clocks and limits.
#pragma once

#include "front/input/command_line.h"

// A number that is missing leaves what it would set.

// "level": moves a control, its time in minutes (or minutes and seconds), increment in seconds.
void SetLevel(const CommandLine& line);

// "sd" and "st": the depth in plies, or the time in seconds, of every move.
void SetDepth(const CommandLine& line);
void SetMoveTime(const CommandLine& line);

// What is left on the clocks, in hundredths of a second.
void SetOwnTime(const CommandLine& line);
void SetOpponentTime(const CommandLine& line);

// The same two during a search, where the number begins at a fixed place.
void SetOwnClock(const CommandLine& line);
void SetOpponentClock(const CommandLine& line);
