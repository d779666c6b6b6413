// The commands that switch how the engine behaves towards the interface.
#pragma once

#include "front/input/command_line.h"

// Ends the process.
void QuitProgram(const CommandLine& line);

// Thinking output is wanted, or not.
void PostOn(const CommandLine& line);
void PostOff(const CommandLine& line);

// Pondering is wanted, which the settings may forbid, or not.
void PonderOn(const CommandLine& line);
void PonderOff(const CommandLine& line);

// An interface of the old protocol is at the other end: no limits of a search are left, and its
// interrupts are ignored.
void EnterXboard(const CommandLine& line);

// A partner program leads the game.
void EnterPartnerMode(const CommandLine& line);

// Remembers "on" or "off".
void SetDebug(const CommandLine& line);

// Says that the engine is there.
void AnswerReady(const CommandLine& line);
