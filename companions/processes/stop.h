// Being told to stop: by the keyboard or by whoever manages the machine.
#pragma once

// From now on a signal to end is only noted.
void NoteStopSignals();

constexpr int SIGNAL_STATUS = 128; // the exit status of a program that was stopped, less the signal

// The signal that has come, or 0.
int StopSignal();
