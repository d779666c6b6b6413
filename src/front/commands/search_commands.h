// The commands that are honoured while a search runs.
#pragma once

// Reads waiting lines and acts on them, until none is left or one ends the search. Commands set
// flags and print short replies; what the flags ask for is done when the search has ended.
void HandleSearchCommands();
