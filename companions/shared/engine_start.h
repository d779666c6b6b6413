// What the programs beside the engine start of it.
#pragma once

#include <string>

// Starts clock, board and evaluation with the parameters as they are: to be read before.
void StartTables();

// Replaces the parameters by those of a values file. False, with a message, when it cannot be
// opened; the parameters stay then.
bool ReadValues(const std::string& path);
