#include "front/dialects/variation.h"

#include <cstdio>

#include "board/notation.h"
#include "board/position.h"
#include "front/game/game.h"
#include "search/root.h"

Move MoveBeingSearched() {
    return Ply > Root.gamePly ? UndoStack[Root.gamePly].move : RootMove(Root.index);
}

int TakeVariation(int index, Move (&moves)[MAX_VARIATION]) {
    const int count = CollectVariation(index, moves);
    Game.PonderMove = count > 1 ? moves[1] : NO_MOVE;
    return count;
}

void PrintVariationMoves(int index) {
    Move moves[MAX_VARIATION];
    const int count = TakeVariation(index, moves);
    for (int i = 0; i < count; i++)
        std::printf(" %s", MoveText(moves[i]).c_str());
}
