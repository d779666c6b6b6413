// Whether a move word that was remembered elsewhere fits the position.
#pragma once

#include "board/types.h"

// Whether the move could have been generated here for the side to move, own king left in check or
// not: what comes out of a hash table may belong to another position. Castling is fully tested
// but for the king's own square.
bool IsPseudoLegal(Move move);
