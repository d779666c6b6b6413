// Random games, to look at many different positions.
#pragma once

#include <random>

#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/position.h"

// Where the games begin: openings, endings, promotions at hand, castling still open.
constexpr const char* WalkStarts[] = {
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -",
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -",
    "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - -",
    "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - -",
    "4k3/pp6/8/8/8/8/6PP/4K3 w - -",
    "2r3k1/5ppp/8/3N4/8/1b6/5PPP/3R2K1 b - -",
};

// Plays `plies` random legal moves from each start and calls `visit` before each of them. Leaves
// the starting position.
template <typename Visit> void WalkPositions(int plies, Visit visit) {
    std::mt19937 random(20240229);
    for (const char* start : WalkStarts) {
        LoadFen(start);
        for (int i = 0; i < plies; i++) {
            visit();
            MoveStackTop = 0;
            const int count = GenerateLegalMoves();
            if (count == 0)
                break;
            MakeMove(MoveStack[random() % unsigned(count)].move, true);
        }
    }
    MoveStackTop = 0;
    SetStartPosition();
}
