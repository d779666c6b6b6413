// The commands that read and write the evaluation's parameters.
#pragma once

#include "front/input/command_line.h"

// Reads the values file and makes everything that was computed from the old parameters anew.
void ReloadValues(const CommandLine& line);

// Writes the values file, or says that it cannot be written.
void WriteValues(const CommandLine& line);

// Forgets all that searches have learned.
void CleanTables(const CommandLine& line);

// Sets the margin or coefficient of one band of pruning.
template <int Band> void SetPruneMargin(const CommandLine& line);
template <int Band> void SetPruneCoefficient(const CommandLine& line);
