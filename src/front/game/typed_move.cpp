#include "front/game/typed_move.h"

#include <cstdio>

#include "board/moves/legal_moves.h"
#include "board/notation.h"
#include "front/game/dialect.h"
#include "front/game/game.h"

void RefuseMove(const std::string& line) {
    if (Speaking->refuseMove != nullptr)
        return Speaking->refuseMove(line);
    std::printf("Illegal move: %s\n", line.c_str());
    std::fflush(stdout);
}

bool PlayTypedMove(const std::string& line) {
    const Move move = MoveFromText(line);
    if (!IsLegal(move)) {
        RefuseMove(line);
        return false;
    }
    PlayMove(move);
    return true;
}
