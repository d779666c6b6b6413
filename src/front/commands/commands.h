// The commands of the console and of the xboard dialect, one procedure each.
#pragma once

#include "front/input/command_line.h"

void QuitProgram(const CommandLine& line);
void CleanTables(const CommandLine& line);
void PlayTypedMove(const CommandLine& line);
void ShowHelpPages(const CommandLine& line);
void StartNewGame(const CommandLine& line);
void PostOn(const CommandLine& line);
void PostOff(const CommandLine& line);
void ResetGame(const CommandLine& line);
void SetLevel(const CommandLine& line);
void ShowMoves(const CommandLine& line);
void EnterEdit(const CommandLine& line);
void LoadPosition(const CommandLine& line);
void RunPerft(const CommandLine& line);
void SetDepth(const CommandLine& line);
void SetMoveTime(const CommandLine& line);
void Go(const CommandLine& line);
void SetWhite(const CommandLine& line);
void SetBlack(const CommandLine& line);
void RemoveMoves(const CommandLine& line);
void UndoMove(const CommandLine& line);
void Analyse(const CommandLine& line);
void ForceOn(const CommandLine& line);
void ShowBoard(const CommandLine& line);
void ShowFlags(const CommandLine& line);
void SetOwnTime(const CommandLine& line);
void SetOpponentTime(const CommandLine& line);
void PonderOff(const CommandLine& line);
void PonderOn(const CommandLine& line);
void EnterPartnerMode(const CommandLine& line);
void EnterXboard(const CommandLine& line);
void PlayDemo(const CommandLine& line);
void ShowBookMoves(const CommandLine& line);
void AnswerReady(const CommandLine& line);
void ShowTablebaseStatus(const CommandLine& line);
void SetDebug(const CommandLine& line);

// Sets the margin or coefficient of one band of pruning.
template <int Band> void SetPruneMargin(const CommandLine& line);
template <int Band> void SetPruneCoefficient(const CommandLine& line);
