// The commands that only a search hears.
#pragma once

#include "front/input/command_line.h"

void MoveNow(const CommandLine& line);
void PonderHit(const CommandLine& line);
void RequestUndo(const CommandLine& line);
void RequestExit(const CommandLine& line);
void RequestNewGame(const CommandLine& line);
void ReceiveResult(const CommandLine& line);

// How far the search is; and the same where none runs.
void ShowProgress(const CommandLine& line);
void ShowNoProgress(const CommandLine& line);
