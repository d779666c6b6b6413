// The signals that a chess interface sends to its engine.
#pragma once

// A broken output pipe and a file that may not grow any more no longer end the process, and a
// request to terminate ends it with exit code 0. Called once at start-up.
void InitSignals();

// From now on interrupts are ignored: interfaces of the old protocol send one before a command.
void IgnoreInterrupts();
