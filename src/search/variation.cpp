#include "search/variation.h"

#include "board/attackers.h"
#include "board/moves/make_move.h"
#include "board/moves/pseudo_legal.h"
#include "board/position.h"
#include "search/root.h"
#include "search/transposition.h"

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

int CollectVariation(int index, Move (&moves)[MAX_VARIATION]) {
    int count = 0;
    moves[count++] = RootMove(index);
    const int startPly = Ply;
    if (Ply == Root.gamePly)
        MakeMove(RootMove(index), true);
    while (count < MAX_VARIATION) {
        const Move move = FollowTable();
        if (move == NO_MOVE)
            break;
        moves[count++] = move;
    }
    while (Ply > startPly)
        UnmakeMove();
    return count;
}

Move ExpectedReply(Move move) {
    MakeMove(move, true);
    const Move reply = FollowTable();
    if (reply != NO_MOVE)
        UnmakeMove();
    UnmakeMove();
    return reply;
}
