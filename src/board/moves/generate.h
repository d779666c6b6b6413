// Generating pseudo-legal moves of the side to move, each with its order score.
//
// Generators append to one stack of moves and never clear it. A caller remembers `MoveStackTop`
// before generating and sets it back when it is done. Men of a kind are taken lowest square
// first, and so are the targets of each man, unless a generator says otherwise: the order is
// part of the engine's behaviour.
#pragma once

#include <cassert>

#include "board/position.h"

struct ScoredMove {
    Move move;
    int32_t score; // higher is tried earlier
};

// A node can have at most sixteen movers to a target square, promotions included, whatever a set-up
// board holds; this is room for every ply of the deepest line.
constexpr int MAX_NODE_MOVES = 1100;
constexpr int MOVE_STACK_SIZE = MAX_NODE_MOVES * MAX_LINE_PLY;
extern ScoredMove MoveStack[MOVE_STACK_SIZE];
extern int32_t MoveStackTop;

// Appends to the stack, which has room for every line that a search can reach.
inline void PushMove(Move move, int32_t score) {
    assert(MoveStackTop >= 0 && MoveStackTop < MOVE_STACK_SIZE);
    MoveStack[MoveStackTop++] = {move, score};
}

// Order score of a capture or promotion; updates the age of a losing capture's statistics. A
// move that is neither (an en-passant capture) gets 100901.
int32_t CaptureScore(Move move);

// Captures onto `targets`, with capture-promotions and en passant: pawns (queen, knight, rook,
// bishop), en passant from the left and then from the right, knights, bishops, rooks, queens, king.
void GenerateCaptures(Bitboard targets);

// Promotions by a push, highest square first, in the order queen, rook, knight, bishop: not the
// order of the capture-promotions, and meant so.
void GeneratePromotions();

// Of the promotions by a push only the queen, and the knight where it gives check.
void GeneratePromotionsQN();

// Castling and all quiet moves but promotions: castling, knights, bishops, pawns, rooks, queens,
// king; scored by history slice 0 or 1. The king's own square is not tested for castling:
// callers that need legal moves do not ask when in check.
void GenerateQuiet(int slice);
