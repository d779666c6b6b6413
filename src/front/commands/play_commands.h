// The commands of the game at the board: moves, sides, positions.
#pragma once

#include "front/input/command_line.h"

// Enters a typed move, whatever the engine is doing. Idle, it plays the move and answers it, unless
// it is in force mode; a search of its own ends for it; while pondering, the predicted move turns
// the search into the engine's own, and another one is answered once the prediction is taken back;
// in analysis the position changes.
void EnterMove(const CommandLine& line);

void StartNewGame(const CommandLine& line);
void ResetGame(const CommandLine& line);
void LoadPosition(const CommandLine& line);
void SetWhite(const CommandLine& line);
void SetBlack(const CommandLine& line);
void RemoveMoves(const CommandLine& line);
void UndoMove(const CommandLine& line);
void ForceOn(const CommandLine& line);
void PlayDemo(const CommandLine& line);
