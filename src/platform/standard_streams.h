// The three streams that a process is started with, as far as they are more than bytes.
#pragma once

// Opens the null device in the place of every stream that the process was started without: else the
// first file to be opened would take its number, be read as commands or written over by replies.
// Called first thing in `main`.
void OpenStandardStreams();

// Whether standard output is a terminal, where a person reads along.
bool OutputIsTerminal();

// Whether that terminal shows colours and characters beyond ASCII, as its environment tells.
bool TerminalShowsUnicode();

// Whether what is written to standard output can reach nobody any more: the reader has closed his
// end of the pipe, or the terminal is gone.
bool OutputAbandoned();

// The same, as far as the system tells it without being written to: where it does not, readers
// could take a test for the end.
bool OutputHungUp();
