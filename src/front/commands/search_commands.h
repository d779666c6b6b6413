// The commands that only a search hears.
#pragma once

#include "front/input/command_line.h"

// The search ends and is not to be held: its move is wanted.
void MoveNow(const CommandLine& line);

// The same, but only where a move is wanted of the engine; where a person has typed it idly, help.
void MoveNowIfThinking(const CommandLine& line);

// Ends the pondering for a line that is then taken as if the engine were idle.
void PausePondering(const CommandLine& line);

// Answers with the number of the ping, after the move that the engine is thinking about.
void AnswerPing(const CommandLine& line);

// The opponent has played as predicted, and the search goes on as one of the game.
void PonderHit(const CommandLine& line);

// Leave a request for whoever started the search; the search ends.
void RequestUndo(const CommandLine& line);
void RequestExit(const CommandLine& line);
void RequestNewGame(const CommandLine& line);
void RequestForce(const CommandLine& line);

// The interface has declared the game over: no move is wanted any more.
void ReceiveResult(const CommandLine& line);

// How far the search is; and the same where none runs.
void ShowProgress(const CommandLine& line);
void ShowNoProgress(const CommandLine& line);
