// Where men stand well: the numbers behind the running piece-square sums.
#pragma once

// Fills both tables that make and unmake read. Called at start-up, before any position is set up.
void InitPieceSquareTables();
