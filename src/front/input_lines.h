// Standard input as a sequence of lines, and as a stream of characters where a command wants that.
#pragma once

#include <string>

// Reads once and appends to the input buffer. False at the end of input.
bool ReadInput();

// Whether a whole line waits in the buffer.
bool LineWaiting();

// Takes the next line out of the buffer, without its line end and with the first carriage return
// turned into a blank; a NUL ends it. False when no whole line waits.
bool TakeLine(std::string& line);

// Waits until a whole line waits, asleep. False at the end of input, when what is left has no line
// end.
bool WaitForLine();

// Waits for the next line and takes it. False at the end of input.
bool NextLine(std::string& line);

// Puts a line that was taken back: it will be the next.
void ReturnLine(const std::string& line);

// The next character of the input, -1 at its end.
int NextCharacter();
