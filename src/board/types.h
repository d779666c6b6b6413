// Squares, colours, pieces, bitboards and the move word: the vocabulary of the whole engine.
#pragma once

#include <bit>
#include <cstdint>

// Bit n stands for square n; a1 = 0, h1 = 7, a8 = 56, h8 = 63.
using Bitboard = uint64_t;

enum Colour : int32_t { WHITE, BLACK };

constexpr Colour ChangeSide(Colour s) {
    return Colour(s ^ 1);
}

// The codes say how a man moves: bit 2 marks a slider, bit 0 lines, bit 1 diagonals. Code 4 is
// never placed; it is left free so that bit 2 means just that.
enum Piece : int32_t { EMPTY = 0, KING = 1, KNIGHT = 2, PAWN = 3, ROOK = 5, BISHOP = 6, QUEEN = 7 };
constexpr int PIECE_CODES = 8;

// Centipawns by piece code.
constexpr int PieceValue[PIECE_CODES] = {0, 10000, 300, 100, 0, 500, 300, 900};
// Pieces without pawns in pawn units, by piece code: what the phase of the game is measured in.
constexpr int PiecePhaseUnits[PIECE_CODES] = {0, 0, 3, 0, 0, 5, 3, 9};

constexpr bool IsSquare(int sq) {
    return sq >= 0 && sq < 64;
}
constexpr int FileOf(int sq) {
    return sq & 7;
}
constexpr int RankOf(int sq) {
    return sq >> 3;
}
// The rank as `c` counts it: 0 is its own back rank.
constexpr int RelativeRank(Colour c, int sq) {
    return c == WHITE ? sq >> 3 : 7 - (sq >> 3);
}
// Steps of a king from one square to another on an empty board.
constexpr int KingSteps(int a, int b) {
    const int files = FileOf(a) < FileOf(b) ? FileOf(b) - FileOf(a) : FileOf(a) - FileOf(b);
    const int ranks = RankOf(a) < RankOf(b) ? RankOf(b) - RankOf(a) : RankOf(a) - RankOf(b);
    return files > ranks ? files : ranks;
}
constexpr Bitboard SquareBit(int sq) {
    return Bitboard{1} << sq;
}

constexpr Bitboard FILE_A = 0x0101010101010101;
constexpr Bitboard FILE_H = FILE_A << 7;
constexpr Bitboard RANK_1 = 0xff;

constexpr Bitboard FileBB(int file) {
    return FILE_A << file;
}
constexpr Bitboard RankBB(int rank) {
    return RANK_1 << (8 * rank);
}
// All squares of a set of files, which has bit n for the n-th.
constexpr Bitboard SquaresOfFiles(unsigned files) {
    return files * FILE_A;
}
constexpr Bitboard LIGHT_SQUARES = 0x55aa55aa55aa55aa; // b1, a2 and so on

// All squares of the colour that the square has.
constexpr Bitboard SquaresLike(int sq) {
    return SquareBit(sq) & LIGHT_SQUARES ? LIGHT_SQUARES : ~LIGHT_SQUARES;
}
// The rank that `c` counts as `relativeRank`, 0 being its own back rank.
constexpr Bitboard RelativeRankBB(Colour c, int relativeRank) {
    return RankBB(c == WHITE ? relativeRank : 7 - relativeRank);
}

// The first and the last square of a set that is not empty.
constexpr int LowestSquare(Bitboard b) {
    return std::countr_zero(b);
}
constexpr int HighestSquare(Bitboard b) {
    return 63 - std::countl_zero(b);
}
constexpr int CountBits(Bitboard b) {
    return std::popcount(b);
}
// Takes the lowest square out of a non-empty set and returns it.
constexpr int PopLowest(Bitboard& b) {
    const int sq = LowestSquare(b);
    b &= b - 1;
    return sq;
}

// The squares of `b` moved one step ahead as `Us` sees it; what leaves the board is lost.
template <Colour Us> constexpr Bitboard Ahead(Bitboard b) {
    return Us == WHITE ? b << 8 : b >> 8;
}
// The squares to the left and right of those in `b`.
constexpr Bitboard SquaresBeside(Bitboard b) {
    return (b & ~FILE_A) >> 1 | (b & ~FILE_H) << 1;
}
// The step ahead of a pawn of `Us` as a difference of squares.
template <Colour Us> constexpr int AheadStep = Us == WHITE ? 8 : -8;

// A move in one word: bits 0-5 from, 6-11 to, 12-14 moving piece, 15-17 captured piece (0 for
// none and for en passant), 18-20 promotion piece (0 for none); the rest is zero. There are no
// flags: castling, en passant and double steps are recognised from the fields.
using Move = uint32_t;

constexpr Move NO_MOVE = 0;
constexpr int MOVE_BITS = 21;
constexpr Move MOVE_MASK = (Move{1} << MOVE_BITS) - 1;
constexpr Move CAPTURE_OR_PROMOTION = 0x1f8000; // any bit of the captured or promotion piece
constexpr Move SLIDER_MOVES = 0x4000;           // bit 2 of the moving piece
constexpr int CAPTURE_SHIFT = 15;
constexpr int PROMOTION_SHIFT = 18;

constexpr Move MoveWord(int from, int to, int piece, int captured = EMPTY, int promotion = EMPTY) {
    return Move(from) | Move(to) << 6 | Move(piece) << 12 | Move(captured) << CAPTURE_SHIFT |
           Move(promotion) << PROMOTION_SHIFT;
}
constexpr int From(Move m) {
    return int(m & 63);
}
constexpr int To(Move m) {
    return int(m >> 6 & 63);
}
constexpr Piece MovingPiece(Move m) {
    return Piece(m >> 12 & 7);
}
constexpr Piece CapturedPiece(Move m) {
    return Piece(m >> CAPTURE_SHIFT & 7);
}
constexpr Piece Promotion(Move m) {
    return Piece(m >> PROMOTION_SHIFT & 7);
}
// A pawn that changes its file without a captured piece in the word takes en passant.
constexpr bool IsEnPassant(Move m) {
    return (m & 0x3f000) == Move{PAWN} << 12 && ((m ^ m >> 6) & 1) != 0;
}
// Where the man that a move takes stands: beside the pawn that takes it en passant, else on the
// square that the move goes to.
constexpr int VictimSquare(Move m) {
    return IsEnPassant(m) ? (From(m) & 56) | FileOf(To(m)) : To(m);
}
// Neither a capture (en passant included) nor a promotion.
constexpr bool IsQuiet(Move m) {
    return (m & CAPTURE_OR_PROMOTION) == 0 && !IsEnPassant(m);
}
// Where the king stands at the beginning; its rooks stand 3 squares to the right, 4 to the left.
constexpr int KingHome(Colour c) {
    return c == WHITE ? 4 : 60;
}
// A king that goes two files from its home square castles.
constexpr bool IsCastling(Move m) {
    return MovingPiece(m) == KING && (From(m) == KingHome(WHITE) || From(m) == KingHome(BLACK)) &&
           (To(m) == From(m) + 2 || To(m) == From(m) - 2);
}
// The rook's squares when a king castles to `kingTo`.
struct RookHop {
    int from;
    int to;
};
constexpr RookHop CastlingRook(int kingTo) {
    const bool toTheRight = FileOf(kingTo) == FileOf(KingHome(WHITE)) + 2;
    return toTheRight ? RookHop{kingTo + 1, kingTo - 1} : RookHop{kingTo - 2, kingTo + 1};
}
// A pawn of `side` goes two squares.
constexpr bool IsDoubleStep(Colour side, Move m) {
    return MovingPiece(m) == PAWN && To(m) - From(m) == (side == WHITE ? 16 : -16);
}
// A move after which an earlier position can come again: no null move, capture, promotion or
// pawn move.
constexpr bool IsReversible(Move m) {
    return m != NO_MOVE && (m & CAPTURE_OR_PROMOTION) == 0 && MovingPiece(m) != PAWN;
}

// Castling rights, one bit each.
constexpr int WHITE_SHORT = 1;
constexpr int WHITE_LONG = 2;
constexpr int BLACK_SHORT = 4;
constexpr int BLACK_LONG = 8;
constexpr int ALL_CASTLE_RIGHTS = 15;

constexpr int ShortRight(Colour c) {
    return c == WHITE ? WHITE_SHORT : BLACK_SHORT;
}
constexpr int LongRight(Colour c) {
    return c == WHITE ? WHITE_LONG : BLACK_LONG;
}

// The four castling moves.
constexpr Move WHITE_CASTLES_SHORT = MoveWord(4, 6, KING);   // 4484
constexpr Move WHITE_CASTLES_LONG = MoveWord(4, 2, KING);    // 4228
constexpr Move BLACK_CASTLES_SHORT = MoveWord(60, 62, KING); // 8124
constexpr Move BLACK_CASTLES_LONG = MoveWord(60, 58, KING);  // 7868
