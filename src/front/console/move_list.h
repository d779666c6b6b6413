// The legal moves of the position, as a person reads them.
#pragma once

#include <vector>

#include "board/types.h"

// In generator order.
std::vector<Move> LegalMoves();

void PrintMoveList();
