// The static exchange test.
#pragma once

#include "board/position.h"

// Whether the move of `piece` of the side to move, from `from` to `to`, capturing `captured` (0
// for none) and promoting to `promotion` (0 for none), does not lose material by the exchange on
// `to`. An underpromotion always counts as losing; a capture of a man worth at least the
// captor never does.
bool SafeExchange(int to, int from, int piece, int captured, int promotion);

// The same for a move word.
inline bool SafeExchange(Move move) {
    return SafeExchange(To(move), From(move), MovingPiece(move), CapturedPiece(move),
                        Promotion(move));
}
