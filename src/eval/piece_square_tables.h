// Where men stand well: the numbers behind the running piece-square sums.
#pragma once

// Fills both tables that make and unmake read from the parameters, which are cut to what the sums
// can hold. Called at start-up, before any position is set up, and when the parameters change.
void InitPieceSquareTables();

// Computes the sums of the current position anew, and those that taking back its moves restores.
// Called between moves of the game, after the tables have changed.
void RecomputePieceSquareSums();
