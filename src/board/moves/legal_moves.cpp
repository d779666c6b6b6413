#include "board/moves/legal_moves.h"

#include "board/attackers.h"
#include "board/moves/generate.h"
#include "board/moves/make_move.h"

// Found out by making the move.
static bool LeavesKingSafe(Move move) {
    const Colour us = SideToMove;
    MakeMove(move, true);
    const bool safe = !InCheck(us);
    UnmakeMove();
    return safe;
}

bool HasLegalMove() {
    const int32_t top = MoveStackTop;
    const bool has = GenerateLegalMoves() > 0;
    MoveStackTop = top;
    return has;
}

bool AnswersCheck(Move move) {
    return !IsCastling(move) && LeavesKingSafe(move);
}

static bool IsPlayable(Move move, bool inCheck) {
    if (CapturedPiece(move) == KING)
        return false;
    return inCheck ? AnswersCheck(move) : LeavesKingSafe(move);
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
