// Making moves on the position, taking them back.
#pragma once

#include "board/position.h"

// Makes a pseudo-legal move of the side to move and returns the side now to move. The king may be
// left in check: callers test that afterwards. With `save` false the record at this `Ply` must
// already hold the values of the current position, from a saved move that was made from it here
// and taken back; otherwise `UnmakeMove` restores stale values.
Colour MakeMove(Move move, bool save);

// Takes back the last move. `Ply` must be above 0 and the last record must not be a null move.
void UnmakeMove();

// Passes the turn with an empty record; the side to move must not be in check.
void MakeNullMove();

// Takes back a null move.
void UnmakeNullMove();
