// The signals that a chess interface sends to its engine.
#pragma once

// A broken output pipe no longer ends the process, and a request to terminate ends it with exit
// code 0. Called once at start-up.
void InitSignals();

// From now on interrupts are ignored: interfaces of the old protocol send one before a command.
void IgnoreInterrupts();
