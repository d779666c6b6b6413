#include "front/dialects/thinking.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>

#include "board/attackers.h"
#include "board/make_move.h"
#include "board/notation.h"
#include "board/pseudo_legal.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/resign.h"
#include "search/interrupts.h"
#include "search/root.h"
#include "search/state.h"
#include "search/transposition.h"

namespace {

constexpr int MAX_VARIATION = 20;
// Nodes until which an unforced line is held back; the first node of all is let through.
constexpr int64_t SILENT_NODES = 100000;
// Lifts mate scores beyond the range of ordinary scores.
constexpr int32_t PRINTED_MATE_OFFSET = 67;

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

// What the table expects the opponent to reply to a move.
static Move ExpectedReply(Move move) {
    MakeMove(move, true);
    const Move reply = FollowTable();
    if (reply != NO_MOVE)
        UnmakeMove();
    UnmakeMove();
    return reply;
}

static int32_t PrintedScore(int32_t score) {
    if (std::abs(score) <= MATE_BOUND)
        return score;
    return score > 0 ? score + PRINTED_MATE_OFFSET : score - PRINTED_MATE_OFFSET;
}

void PrintThinking(bool forced) {
    if (!Interface.PostThinking ||
        (!forced && Running.NodeCount > 0 && Running.NodeCount <= SILENT_NODES))
        return;
    std::printf("%d %d %d %" PRId64, Running.IterationDepth + 1, PrintedScore(Root.moves[0].score),
                ElapsedTime(), Running.NodeCount);
    PrintVariationMoves(0);
    std::printf("\n");
    std::fflush(stdout);
}

void AnnounceMove(Move move, bool fromBook) {
    if (!fromBook)
        PrintThinking(true);
    // Without posting, nothing was printed that told it.
    Game.PonderMove = ExpectedReply(move);
    if (ShouldResign())
        std::printf("resign\n");
    std::printf("move %s\n", MoveText(move).c_str());
    std::fflush(stdout);
}
