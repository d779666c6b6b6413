// The commands of the game at the board: moves, sides, positions.
#pragma once

#include "front/input/command_line.h"

// Enters a typed move, whatever the engine is doing. Idle, it plays the move and answers it, unless
// it is in force mode; a search of its own ends for it; while pondering, the predicted move turns
// the search into the engine's own, and another one is answered once the prediction is taken back;
// in analysis the position changes.
void EnterMove(const CommandLine& line);

// The same for a move behind a keyword.
void EnterUserMove(const CommandLine& line);

// The starting position, the engine playing Black.
void StartNewGame(const CommandLine& line);

// Ends the game for all that learns: a game that nothing was learned from counts as a draw, and
// what searches remember of it is forgotten. The board stays.
void ResetGame(const CommandLine& line);

// Sets the position up whose FEN follows the keyword.
void LoadPosition(const CommandLine& line);

// Gives the turn to that side and the other side to the engine.
void SetWhite(const CommandLine& line);
void SetBlack(const CommandLine& line);

// Take back the last move of each side, or the last move.
void RemoveMoves(const CommandLine& line);
void UndoMove(const CommandLine& line);

// The engine makes no moves of its own until it is told to.
void ForceOn(const CommandLine& line);

// Plays a new game against itself until it is over or told to end.
void PlayDemo(const CommandLine& line);
