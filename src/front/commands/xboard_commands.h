// The commands that xboard gives to an engine that names its features.
#pragma once

#include "front/input/command_line.h"

// Names the features, in the words of version 2 of the protocol.
void NameFeatures(const CommandLine& line);

// Sets a position up from its FEN; an impossible one is reported.
void SetBoard(const CommandLine& line);

// Uses so many megabytes for all tables together.
void SetMemory(const CommandLine& line);

// Uses the tablebases of a kind, if it is the one that is known, from the path behind it.
void SetTablebasePath(const CommandLine& line);

// Tells the move that the engine would play for the opponent, if it expects one.
void ShowHint(const CommandLine& line);
