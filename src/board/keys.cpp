#include "board/keys.h"

#include "platform/runtime_rand.h"

constinit Bitboard PieceKeys[2][PIECE_CODES][64] = {};
constinit Bitboard CastleKeys[16] = {};
constinit Bitboard EpKeys[8] = {};

// One key: bit i is set when the i-th number drawn is odd.
static Bitboard ZobristRand() {
    Bitboard key = 0;
    for (int i = 0; i < 64; i++)
        key |= Bitboard(Rand() & 1) << i;
    return key;
}

void InitKeys() {
    // The order of drawing fixes every key, and with them the learning files.
    constexpr Piece drawn[] = {PAWN, KNIGHT, BISHOP, ROOK, QUEEN, KING};
    for (int sq = 0; sq < 64; sq++) {
        for (const Piece piece : drawn) {
            PieceKeys[WHITE][piece][sq] = ZobristRand();
            PieceKeys[BLACK][piece][sq] = ZobristRand();
        }
    }
    for (Bitboard& key : CastleKeys)
        key = ZobristRand();
    for (Bitboard& key : EpKeys)
        key = ZobristRand();
}
