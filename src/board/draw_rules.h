// The draws that the rules give for how a game has gone: fifty moves, repetition.
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
