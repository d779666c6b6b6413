// The console's help pages.
#pragma once

// Prints the first page, waits for a line, prints the second.
void ShowHelp();
