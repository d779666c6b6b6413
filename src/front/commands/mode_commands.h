// The commands that switch how the engine behaves towards the interface.
#pragma once

#include "front/input/command_line.h"

void QuitProgram(const CommandLine& line);
void PostOn(const CommandLine& line);
void PostOff(const CommandLine& line);
void PonderOn(const CommandLine& line);
void PonderOff(const CommandLine& line);
void EnterXboard(const CommandLine& line);
void EnterPartnerMode(const CommandLine& line);
void SetDebug(const CommandLine& line);
void AnswerReady(const CommandLine& line);
