// Counts the moves of games, lines and searches in one table.
#pragma once

#include "board/types.h"
#include "move_table.h"
#include "searched_positions.h"

class MoveCounter {
public:
    SearchedPositions searched;
    MoveTable table;

    // The entry of a legal move in the position on the board. A new one gets the score that the
    // position after it was searched with.
    MoveCount& Entry(Move move);

    // Gives every searched position its best move, and all moves that lead to another one: lines
    // that cross belong together, whichever of them the sources tell.
    void AddSearchedMoves();
};
