// The one position: every variable that describes the board, with the procedures that set it up
// man by man. `board/make_move` changes it move by move.
#pragma once

#include "board/attacks.h"
#include "board/types.h"

// What a move does not reverse arithmetically, saved before it is made. The record at `Ply` - 1
// holds the last move.
struct UndoRecord {
    uint64_t posKey;
    int32_t fiftyCount;
    Move move;
    int32_t castleRights;
    int32_t materialIndex;
    int16_t pstSumA;
    int16_t pstSumB;
};

// Room for the longest game and the deepest line above it; `ForgetOldHistory` keeps a game from
// outgrowing it.
constexpr int MAX_GAME_PLY = 16384;
constexpr int MAX_LINE_PLY = 256;
constexpr int UNDO_RECORDS = MAX_GAME_PLY + MAX_LINE_PLY;

// No material signature can be formed: some side has three men of a kind.
constexpr int MATERIAL_INVALID = 531441;
// Weight of one man in the material signature, by piece code and colour.
constexpr int MaterialWeight[PIECE_CODES][2] = {{0, 0}, {0, 0},  {729, 2187}, {6561, 59049},
                                                {0, 0}, {9, 27}, {81, 243},   {1, 3}};

extern Colour SideToMove;
extern Bitboard ColourBB[2];             // all men of each colour
extern Bitboard PieceBB[PIECE_CODES][2]; // by piece code, then colour; rows 0 and 4 stay empty
extern Bitboard OrthoSliders;            // rooks and queens of both colours
extern Bitboard DiagSliders;             // bishops and queens of both colours
// Occupancy by line, bit = place on the line: the file on ranks, the rank on all other lines.
extern int32_t RankOcc[8];
extern int32_t FileOcc[8];
extern int32_t DiagOcc[15];     // index file + rank
extern int32_t AntiDiagOcc[15]; // index file - rank + 7
extern Piece Board[64];
extern int32_t KingSquare[2]; // where the king was placed last; always 0..63, even without a king
extern int32_t CastleRights;
extern int32_t FiftyCount;    // plies since the last capture or pawn move
extern uint64_t PosKey;       // placement only: no side to move, castling or en passant
extern uint64_t PawnKey;      // the pawns alone
extern int32_t MaterialIndex; // 0..531440, or MATERIAL_INVALID
extern int32_t PieceCount[PIECE_CODES][2];
extern int32_t Material[2];   // centipawns without the king
extern int32_t PhaseUnits[2]; // knight 3, bishop 3, rook 5, queen 9
extern int32_t HeavyCount[2]; // rook 1, queen 2
extern int32_t MinorCount[2]; // knights and bishops
extern int32_t MenCount;      // all men, kings included
// Running piece-square sums for the middlegame and the ending: black men count positively, white
// men negatively.
extern int16_t PstSumA;
extern int16_t PstSumB;
extern int32_t Ply;      // moves since the set-up; index of the next free record
extern int32_t SetupPly; // `Ply` of the position that was set up: 1 after an en-passant field
extern UndoRecord UndoStack[UNDO_RECORDS];

// Empties the board and zeroes all that depends on the men, with FiftyCount and both keys. Leaves
// SideToMove, CastleRights, Ply and the history.
void ClearBoard();

// Puts a man on an empty square and updates every variable. `type` is a placeable piece code. A
// second king of a colour replaces the first in `PieceBB` and `KingSquare`, but both stay on the
// board.
void PlacePiece(int square, Colour colour, Piece type);

// Takes whatever stands on the square off every variable; nothing happens on an empty square.
void RemovePiece(int square);

// The starting position with all castling rights, white to move, no moves played.
void SetStartPosition();

// Cuts castling rights back to those whose king and rook stand at home.
void DropImpossibleCastleRights();

// Rebuilds MaterialIndex from PieceCount.
void RecomputeMaterialIndex();

// When the record stack is nearly full, drops the oldest half of the game's records, so that
// games of any length can be played on. Called between moves of the game, never in a search.
void ForgetOldHistory();

// The last move played, NO_MOVE at the set-up position or after a null move.
inline Move LastMove() {
    return Ply > 0 ? UndoStack[Ply - 1].move : NO_MOVE;
}

// Colour of the man on an occupied square.
inline Colour ColourOn(int sq) {
    return Colour(ColourBB[BLACK] >> sq & 1);
}

inline Bitboard Occupied() {
    return ColourBB[WHITE] | ColourBB[BLACK];
}

// The two sliding lookups with the current occupancy.
inline Bitboard RookAttacks(int sq) {
    const int file = FileOf(sq);
    const int rank = RankOf(sq);
    return RankAttackTable[LineConfig[RankOcc[rank] * 8 + file] * 8 + rank] |
           FileAttackTable[LineConfig[FileOcc[file] * 8 + rank] * 8 + file];
}
inline Bitboard BishopAttacks(int sq) {
    const int rank = RankOf(sq);
    const int diag = FileOf(sq) + rank;
    const int anti = FileOf(sq) - rank + 7;
    return DiagAttackTable[LineConfig[DiagOcc[diag] * 8 + rank] * 16 + diag] |
           AntiDiagAttackTable[LineConfig[AntiDiagOcc[anti] * 8 + rank] * 16 + anti];
}
inline Bitboard QueenAttacks(int sq) {
    return RookAttacks(sq) | BishopAttacks(sq);
}
