#include "front/console/move_list.h"

#include <cstdio>

#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/san.h"

namespace {

constexpr int ON_A_LINE = 10;

} // namespace

// They are taken off the move stack, which a count or a search uses from its bottom on.
std::vector<Move> LegalMoves() {
    std::vector<Move> moves;
    const int32_t top = MoveStackTop;
    for (int i = 0, count = GenerateLegalMoves(); i < count; i++)
        moves.push_back(MoveStack[top + i].move);
    MoveStackTop = top;
    return moves;
}

void PrintMoveList() {
    int printed = 0;
    for (const Move move : LegalMoves()) {
        if (printed > 0 && printed % ON_A_LINE == 0)
            std::printf("\n");
        std::printf("  %-6s", SanText(move).c_str());
        printed++;
    }
    std::printf(printed > 0 ? "\n" : "There is no move: the game is over.\n");
    std::fflush(stdout);
}
