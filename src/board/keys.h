// The random keys that positions are hashed with, the same in every run.
#pragma once

#include "board/types.h"

extern Bitboard PieceKeys[2][PIECE_CODES][64]; // by colour, piece code and square
extern Bitboard CastleKeys[16];                // by castling rights
extern Bitboard EpKeys[8];                     // by file

// The placement key after a move of `us`, given the one before it; without the rook of a castling
// and the pawn taken en passant. Good enough to fetch table entries by, before the move is made.
inline uint64_t NearlyKeyAfter(uint64_t key, Colour us, Move move) {
    const Piece arrives = Promotion(move) != EMPTY ? Promotion(move) : MovingPiece(move);
    key ^= PieceKeys[us][MovingPiece(move)][From(move)] ^ PieceKeys[us][arrives][To(move)];
    if (CapturedPiece(move) != EMPTY)
        key ^= PieceKeys[ChangeSide(us)][CapturedPiece(move)][To(move)];
    return key;
}

// Draws the keys from the runtime's random sequence. Called once at start-up, before the sequence
// is seeded: drawn from its initial state the keys are the same in every run, which learning
// files depend on.
void InitKeys();
