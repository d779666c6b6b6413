#include "eval/parameters/piece_square_tables.h"

#include <algorithm>
#include <vector>

#include "board/moves/make_move.h"
#include "board/piece_square.h"
#include "board/position.h"
#include "eval/parameters/parameters.h"

// The running sums have 16 bits; with this much a square no board is too full for them.
static int16_t SquareValue(int32_t parameter) {
    constexpr int32_t limit = INT16_MAX / 64;
    return int16_t(std::clamp(parameter, -limit, limit));
}

static void FillTables(Piece piece, const SquareTable& middlegame, const SquareTable& ending) {
    for (int sq = 0; sq < 64; sq++) {
        PstA[piece][WHITE][sq] = PstA[piece][BLACK][sq ^ 56] = SquareValue(middlegame[sq]);
        PstB[piece][WHITE][sq] = PstB[piece][BLACK][sq ^ 56] = SquareValue(ending[sq]);
    }
}

void InitPieceSquareTables() {
    FillTables(PAWN, Params.PawnMiddlegame, Params.PawnEnding);
    FillTables(KNIGHT, Params.KnightMiddlegame, Params.KnightEnding);
    FillTables(BISHOP, Params.BishopMiddlegame, Params.BishopEnding);
    FillTables(ROOK, Params.RookMiddlegame, Params.RookEnding);
    FillTables(QUEEN, Params.QueenMiddlegame, Params.QueenEnding);
    FillTables(KING, Params.KingMiddlegame, Params.KingEnding);
}

static void SumBoard() {
    PstSumA = PstSumB = 0;
    for (int sq = 0; sq < 64; sq++) {
        if (Board[sq] == EMPTY)
            continue;
        const Colour side = ColourOn(sq);
        const int view = side == BLACK ? 1 : -1;
        PstSumA = int16_t(PstSumA + view * PstA[Board[sq]][side][sq]);
        PstSumB = int16_t(PstSumB + view * PstB[Board[sq]][side][sq]);
    }
}

void RefillPieceSquareTables() {
    std::vector<Move> played;
    while (Ply > SetupPly) {
        played.push_back(LastMove());
        UnmakeMove();
    }
    InitPieceSquareTables();
    SumBoard();
    for (; !played.empty(); played.pop_back())
        MakeMove(played.back(), true);
}
