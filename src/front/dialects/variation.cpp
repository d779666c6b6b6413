#include "front/dialects/variation.h"

#include <cstdio>

#include "board/attackers.h"
#include "board/moves/make_move.h"
#include "board/moves/pseudo_legal.h"
#include "board/notation.h"
#include "front/game/game.h"
#include "search/root.h"
#include "search/state.h"
#include "search/transposition.h"

namespace {

constexpr int MAX_VARIATION = 20;

} // namespace

Move MoveBeingSearched() {
    return Ply > Root.gamePly ? UndoStack[Root.gamePly].move : RootMove(Root.index);
}

// Makes the move that the table remembers here and returns it; NO_MOVE at the end of what it knows.
static Move FollowTable() {
    const HashHit hit = HashProbe();
    // A damaged or colliding entry must not reach the board.
    if (!hit.found || hit.move == NO_MOVE || !IsPseudoLegal(hit.move))
        return NO_MOVE;
    const Colour us = SideToMove;
    MakeMove(hit.move, true);
    if (!InCheck(us))
        return hit.move;
    UnmakeMove();
    return NO_MOVE;
}

void PrintVariationMoves(int index) {
    Game.PonderMove = NO_MOVE;
    std::printf(" %s", MoveText(RootMove(index)).c_str());
    const int startPly = Ply;
    if (Ply == Root.gamePly)
        MakeMove(RootMove(index), true);
    for (int printed = 1; printed < MAX_VARIATION; printed++) {
        const Move move = FollowTable();
        if (move == NO_MOVE)
            break;
        if (printed == 1)
            Game.PonderMove = move;
        std::printf(" %s", MoveText(move).c_str());
    }
    while (Ply > startPly)
        UnmakeMove();
}

Move ExpectedReply(Move move) {
    MakeMove(move, true);
    const Move reply = FollowTable();
    if (reply != NO_MOVE)
        UnmakeMove();
    UnmakeMove();
    return reply;
}
