// The legal moves of a position, for those who need them whole.
#pragma once

#include "board/types.h"

// Appends the legal moves to the move stack in generator order (captures, promotions, quiet moves
// by history slice 0) with their order scores. Castling out of check and captures of a king are
// left out. Returns how many were appended.
int GenerateLegalMoves();

// Whether the side to move has a legal move; the move stack stays as it is.
bool HasLegalMove();

// Whether a pseudo-legal move of a side in check gets it out of check; castling never does.
bool AnswersCheck(Move move);

// Whether the word equals a legal move of the side to move.
bool IsLegal(Move move);
