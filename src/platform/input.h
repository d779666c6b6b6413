// Standard input as raw bytes, with the test whether any wait.
#pragma once

// Reads what is there, at most `size` bytes, blocking until there is something. Returns the
// number of bytes, line ends as they were sent; 0 means end of input or an error.
int ReadStandardInput(char* buffer, int size);

// Non-zero when a read would not block. A terminal counts as a console, anything else as a pipe;
// a pipe whose writer has gone counts as waiting, so that the reader meets the end of input.
int StandardInputWaiting();

// Sleeps until a read would not block, or until nobody reads the standard output any more. Where
// the system cannot wait for either it returns at once: the read sleeps.
void AwaitInputOrHangup();

// Sleeps for a moment. The command loop calls it at the end of input, where the process goes on
// waiting but must not use the processor.
void SleepAtEndOfInput();
