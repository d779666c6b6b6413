// The draws that the rules give: fifty moves, repetition, men with which nobody can mate.
#pragma once

// Fifty moves of both sides without a capture or a pawn move.
bool FiftyMovesPassed();

// Whether the position on the board has stood there before. Each looks back through the game and
// the line of the search for the position, with the same side to move, as long as all moves since
// have been reversible. That needs four plies at least.

// Once before is enough: for a search, where a side that can repeat once can do so again.
bool HasRepeatedOnce();

// Twice before, and castling has been as free all the time as it is now: for the rules of the game.
bool HasRepeatedTwice();

// No sequence of moves leads to a mate: bare kings, one minor piece, or bishops of one colour of
// squares.
bool NoMateIsPossible();
