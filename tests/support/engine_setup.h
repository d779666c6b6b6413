// The start-up that every test of the engine's inside needs.
#pragma once

// Fills the tables that are fixed after start-up: attacks, pawn endings, keys, piece-square
// sums and material. Done before the first test anyway; calling it again does nothing.
void SetUpEngineTables();

// Sets the clock, the limits of a search and its options back.
void ForgetLimits();
