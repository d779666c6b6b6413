// Standard input as a sequence of lines, and as a stream of characters where a command wants that.
#pragma once

#include <string>

// Whether a whole line waits in the buffer.
bool LineWaiting();

// From now on the input ends, too, when the output's reader has gone, and what is still being done
// after the end of input is done for nobody.
void EndWithEitherStream(bool wanted);

// Whether reading would tell something at once: bytes wait, or the input has ended.
bool InputTellsSomething();

// Reads what waits, without blocking, until there is a whole line; a very long one may take several
// calls. False at the end of input.
bool ReadWaitingInput();

// Reads the next line in the buffer, without its line end (LF or CR LF) and with the first other
// carriage return turned into a blank; a NUL ends it. False when no whole line waits.
bool PeekLine(std::string& line);

// Takes the next line out of the buffer.
void DropLine();

// Waits until a whole line waits, asleep. False at the end of input, when what is left has no line
// end.
bool WaitForLine();

// Waits for the next line and takes it. False at the end of input.
bool NextLine(std::string& line);

// Whether what is still being done is done for nobody: the input has ended, and the output reaches
// nobody either, unless one of them is enough.
bool Abandoned();

// The next character of the input, -1 at its end.
int NextCharacter();
