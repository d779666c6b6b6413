// The settings file that is read at start-up, and the summary of the settings in force.
#pragma once

// Sets every setting, whoever owns it, to its default.
void SetDefaultSettings();

// Reads "Tarquelin.ini" in the current directory if there is one. A value that cannot be taken gets
// a warning with its line number; a key that is not known is ignored.
void ReadSettingsFile();

// Prints the settings in force.
void PrintSettings();
