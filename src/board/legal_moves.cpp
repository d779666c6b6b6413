#include "board/legal_moves.h"

#include "board/attack_tests.h"
#include "board/generate.h"
#include "board/make_move.h"

static bool IsPlayable(Move move, bool inCheck) {
    if (CapturedPiece(move) == KING || (inCheck && IsCastling(move)))
        return false;
    const Colour us = SideToMove;
    MakeMove(move, true);
    const bool legal = !InCheck(us);
    UnmakeMove();
    return legal;
}

int GenerateLegalMoves() {
    const int start = MoveStackTop;
    GenerateCaptures(ColourBB[ChangeSide(SideToMove)]);
    GeneratePromotions();
    GenerateQuiet(0);
    const bool inCheck = InCheck(SideToMove);
    int kept = start;
    for (int i = start; i < MoveStackTop; i++) {
        if (IsPlayable(MoveStack[i].move, inCheck))
            MoveStack[kept++] = MoveStack[i];
    }
    MoveStackTop = kept;
    return kept - start;
}

bool IsLegal(Move move) {
    const int start = MoveStackTop;
    const int count = GenerateLegalMoves();
    MoveStackTop = start;
    for (int i = start; i < start + count; i++) {
        if (MoveStack[i].move == move)
            return true;
    }
    return false;
}
