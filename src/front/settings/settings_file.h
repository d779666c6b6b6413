// The settings file that is read at start-up.
#pragma once

// Reads "Tarquelin.ini" in the current directory if there is one. A value that cannot be taken gets
// a warning with its line number; a key that is not known is ignored.
void ReadSettingsFile();

// Chooses between the classic and the modern interface, before anything is printed: what the
// variable TARQUELIN_INTERFACE of the environment says, else the settings file, silently.
void ReadInterface();
