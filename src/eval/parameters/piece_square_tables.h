// Where men stand well: the numbers behind the running piece-square sums.
#pragma once

// Fills both tables that make and unmake read from the parameters, which are cut to what the sums
// can hold. Called at start-up, before any position is set up, and when the parameters change.
void InitPieceSquareTables();

// Fills both tables anew within a game: the sums of the position change with them, and those that
// taking back its moves restores.
void RefillPieceSquareTables();
