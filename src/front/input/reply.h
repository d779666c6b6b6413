// A reply of one line.
#pragma once

// Prints the line, ended, at once: interfaces wait for it at the other end of a pipe.
void PrintLine(const char* line);
