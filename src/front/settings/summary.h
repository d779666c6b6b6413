// The summary of the settings in force.
#pragma once

// Prints it: a line for each setting, and a blank one.
void PrintSettings();
