// Analysis: searches without limits of positions that the user changes as he likes.
#pragma once

#include "front/input/command_line.h"

// Analyses until "exit" or the end of input. The engine makes no moves.
void Analyse(const CommandLine& line);

// While the analysis waits for something to do: a move has changed the position, or the line is
// left for the next search to act on. Either ends the wait.
void AnalyseChangedPosition();
void LeaveLineToSearch(const CommandLine& line);

// Ends the analysis for a line that it cannot take. Who dispatches that line goes on with it then,
// unless Game.AnalysisPaused has been taken back.
void PauseAnalysis();
