#include "board/moves/make_move.h"

#include <array>
#include <cassert>

#include "board/keys.h"
#include "board/moves/pseudo_legal.h"
#include "board/piece_square.h"
#include "board/recompute.h"

namespace {

// ANDed into the castling rights when a king or rook leaves a square or a rook is taken on it.
constexpr std::array<uint8_t, 64> CastleMask = [] {
    std::array<uint8_t, 64> mask{};
    mask.fill(255);
    mask[0] = 255 - WHITE_LONG;
    mask[4] = 255 - WHITE_SHORT - WHITE_LONG;
    mask[7] = 255 - WHITE_SHORT;
    mask[56] = 255 - BLACK_LONG;
    mask[60] = 255 - BLACK_SHORT - BLACK_LONG;
    mask[63] = 255 - BLACK_SHORT;
    return mask;
}();

// Material of each kind that enters `Material`: kings have none there.
constexpr int CountedValue[PIECE_CODES] = {0, 0, 300, 100, 0, 500, 300, 900};
constexpr int HeavyUnits[PIECE_CODES] = {0, 0, 0, 0, 0, 1, 0, 2};
constexpr int MinorUnits[PIECE_CODES] = {0, 0, 1, 0, 0, 0, 1, 0};

} // namespace

static inline void ToggleOccupancy(int sq) {
    const int file = FileOf(sq);
    const int rank = RankOf(sq);
    RankOcc[rank] ^= 1 << file;
    FileOcc[file] ^= 1 << rank;
    DiagOcc[file + rank] ^= 1 << rank;
    AntiDiagOcc[file - rank + 7] ^= 1 << rank;
}

static inline void ToggleSliderUnions(int piece, Bitboard squares) {
    if (piece == ROOK || piece == QUEEN)
        OrthoSliders ^= squares;
    if (piece == BISHOP || piece == QUEEN)
        DiagSliders ^= squares;
}

// Adds one man's piece-square entries, or takes them away (sign -1): black men count positively.
template <Colour Owner> static inline void CountSquare(int piece, int sq, int sign) {
    const int view = Owner == BLACK ? sign : -sign;
    PstSumA = int16_t(PstSumA + view * PstA[piece][Owner][sq]);
    PstSumB = int16_t(PstSumB + view * PstB[piece][Owner][sq]);
}

// Counts a man that is no pawn or king in or out of the sums that unmake reverses.
static inline void CountPiece(Colour owner, int piece, int sign) {
    Material[owner] += sign * CountedValue[piece];
    PhaseUnits[owner] += sign * PiecePhaseUnits[piece];
    HeavyCount[owner] += sign * HeavyUnits[piece];
    MinorCount[owner] += sign * MinorUnits[piece];
    PieceCount[piece][owner] += sign;
}

// Takes the captured man on `to` off everything but `Board` and the line occupancies, which the
// captor inherits.
template <Colour Us> static inline void TakeCaptured(int to, int captured) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard bit = SquareBit(to);
    CountSquare<Them>(captured, to, -1);
    ColourBB[Them] ^= bit;
    PieceBB[captured][Them] &= ~bit; // not toggled: a second king is not in it
    MenCount--;
    FiftyCount = 0;
    PosKey ^= PieceKeys[Them][captured][to];
    CountPiece(Them, captured, -1);
    ToggleSliderUnions(captured, bit);
    if (captured == PAWN)
        PawnKey ^= PieceKeys[Them][PAWN][to];
    if (captured == ROOK)
        CastleRights &= CastleMask[to];
    if (MaterialIndex != MATERIAL_INVALID)
        MaterialIndex -= MaterialWeight[captured][Them];
    else if (captured != PAWN && PieceCount[captured][Them] == 2)
        RecomputeMaterialIndex();
}

// Turns the pawn that has arrived on `to` into another piece.
template <Colour Us> static inline void Promote(int to, Piece promotion) {
    const Bitboard bit = SquareBit(to);
    PieceCount[PAWN][Us]--;
    PieceBB[PAWN][Us] ^= bit;
    Material[Us] -= PieceValue[PAWN];
    Board[to] = promotion;
    PosKey ^= PieceKeys[Us][PAWN][to] ^ PieceKeys[Us][promotion][to];
    CountSquare<Us>(PAWN, to, -1);
    CountSquare<Us>(promotion, to, 1);
    PieceBB[promotion][Us] ^= bit;
    ToggleSliderUnions(promotion, bit);
    CountPiece(Us, promotion, 1);
    if (MaterialIndex != MATERIAL_INVALID && PieceCount[promotion][Us] <= 2)
        MaterialIndex += MaterialWeight[promotion][Us] - MaterialWeight[PAWN][Us];
    else
        MaterialIndex = MATERIAL_INVALID;
}

template <Colour Us> static inline void TakeEnPassant(int victim) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard bit = SquareBit(victim);
    CountSquare<Them>(PAWN, victim, -1);
    Board[victim] = EMPTY;
    ToggleOccupancy(victim);
    ColourBB[Them] ^= bit;
    PieceBB[PAWN][Them] ^= bit;
    PosKey ^= PieceKeys[Them][PAWN][victim];
    PawnKey ^= PieceKeys[Them][PAWN][victim];
    MenCount--;
    Material[Them] -= PieceValue[PAWN];
    PieceCount[PAWN][Them]--;
    if (MaterialIndex != MATERIAL_INVALID)
        MaterialIndex -= MaterialWeight[PAWN][Them];
}

template <Colour Us> static inline void MovePawn(int from, int to, int captured, Piece promotion) {
    FiftyCount = 0;
    PawnKey ^= PieceKeys[Us][PAWN][from];
    if (promotion != EMPTY) {
        Promote<Us>(to, promotion);
        return;
    }
    PawnKey ^= PieceKeys[Us][PAWN][to];
    if (captured == EMPTY && ((from ^ to) & 1))
        TakeEnPassant<Us>((from & 56) | (to & 7));
}

// Moves the castling rook on the board. Its sums and key are the caller's business: unmake takes
// them from the record.
template <Colour Us> static inline void HopRook(int from, int to) {
    const Bitboard squares = SquareBit(from) | SquareBit(to);
    ColourBB[Us] ^= squares;
    PieceBB[ROOK][Us] ^= squares;
    OrthoSliders ^= squares;
    Board[from] = EMPTY;
    Board[to] = ROOK;
    ToggleOccupancy(from);
    ToggleOccupancy(to);
}

template <Colour Us> static inline void MoveKing(int from, int to) {
    KingSquare[Us] = to;
    CastleRights &= CastleMask[from];
    if (from == KingHome(Us) && (to == from + 2 || to == from - 2)) {
        const RookHop hop = CastlingRook(to);
        HopRook<Us>(hop.from, hop.to);
        CountSquare<Us>(ROOK, hop.from, -1);
        CountSquare<Us>(ROOK, hop.to, 1);
        PosKey ^= PieceKeys[Us][ROOK][hop.from] ^ PieceKeys[Us][ROOK][hop.to];
    }
}

// For assertions: whether the record has what unmake will need in the current position.
[[maybe_unused]] static bool RecordHolds(const UndoRecord& record) {
    return record.posKey == PosKey && record.fiftyCount == FiftyCount &&
           record.castleRights == CastleRights && record.materialIndex == MaterialIndex &&
           record.pstSumA == PstSumA && record.pstSumB == PstSumB;
}

static inline void SaveRecord(UndoRecord& record) {
    record.posKey = PosKey;
    record.fiftyCount = FiftyCount;
    record.castleRights = CastleRights;
    record.materialIndex = MaterialIndex;
    record.pstSumA = PstSumA;
    record.pstSumB = PstSumB;
}

template <Colour Us> static inline void MakeMoveFor(Move move) {
    const int from = From(move);
    const int to = To(move);
    const Piece piece = MovingPiece(move);
    const Piece captured = CapturedPiece(move);
    const Bitboard fromTo = SquareBit(from) | SquareBit(to);

    if (move & SLIDER_MOVES)
        ToggleSliderUnions(piece, fromTo);
    PieceBB[piece][Us] ^= fromTo;
    ColourBB[Us] ^= fromTo;
    PosKey ^= PieceKeys[Us][piece][from] ^ PieceKeys[Us][piece][to];
    CountSquare<Us>(piece, from, -1);
    CountSquare<Us>(piece, to, 1);
    Board[from] = EMPTY;
    Board[to] = piece;
    ToggleOccupancy(from);
    if (captured != EMPTY) {
        TakeCaptured<Us>(to, captured);
    } else {
        ToggleOccupancy(to);
        FiftyCount++;
    }

    if (piece == PAWN)
        MovePawn<Us>(from, to, captured, Promotion(move));
    else if (piece == ROOK)
        CastleRights &= CastleMask[from];
    else if (piece == KING)
        MoveKing<Us>(from, to);
}

Colour MakeMove(Move move, bool save) {
    assert(Ply >= 0 && Ply < UNDO_RECORDS);
    assert(IsPseudoLegal(move));
    UndoRecord& record = UndoStack[Ply];
    if (save)
        SaveRecord(record);
    assert(RecordHolds(record));
    if (SideToMove == WHITE)
        MakeMoveFor<WHITE>(move);
    else
        MakeMoveFor<BLACK>(move);
    record.move = move;
    Ply++;
    SideToMove = ChangeSide(SideToMove);
    assert(SampleIsConsistent());
    return SideToMove;
}

// Puts the captured man back on `to`, which the captor has already left.
template <Colour Us> static inline void ReturnCaptured(int to, Piece captured) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard bit = SquareBit(to);
    ColourBB[Them] ^= bit;
    // A second king was never in its set; KingSquare tells which one was.
    if (captured != KING || KingSquare[Them] == to)
        PieceBB[captured][Them] ^= bit;
    MenCount++;
    CountPiece(Them, captured, 1);
    ToggleSliderUnions(captured, bit);
    if (captured == PAWN)
        PawnKey ^= PieceKeys[Them][PAWN][to];
}

template <Colour Us>
static inline void UnmakePawn(int from, int to, int captured, Piece promotion) {
    constexpr Colour Them = ChangeSide(Us);
    PawnKey ^= PieceKeys[Us][PAWN][from];
    if (promotion != EMPTY) {
        PieceCount[PAWN][Us]++;
        PieceBB[PAWN][Us] ^= SquareBit(to);
        Material[Us] += PieceValue[PAWN];
        PieceBB[promotion][Us] ^= SquareBit(to);
        ToggleSliderUnions(promotion, SquareBit(to));
        CountPiece(Us, promotion, -1);
        return;
    }
    PawnKey ^= PieceKeys[Us][PAWN][to];
    if (captured == EMPTY && ((from ^ to) & 1)) {
        const int victim = (from & 56) | (to & 7);
        Board[victim] = PAWN;
        ToggleOccupancy(victim);
        ColourBB[Them] ^= SquareBit(victim);
        PieceBB[PAWN][Them] ^= SquareBit(victim);
        PawnKey ^= PieceKeys[Them][PAWN][victim];
        MenCount++;
        Material[Them] += PieceValue[PAWN];
        PieceCount[PAWN][Them]++;
    }
}

template <Colour Us> static inline void UnmakeKing(int from, int to) {
    KingSquare[Us] = from;
    if (from == KingHome(Us) && (to == from + 2 || to == from - 2)) {
        const RookHop hop = CastlingRook(to);
        HopRook<Us>(hop.to, hop.from);
    }
}

template <Colour Us> static inline void UnmakeMoveFor(Move move) {
    const int from = From(move);
    const int to = To(move);
    const Piece piece = MovingPiece(move);
    const Piece captured = CapturedPiece(move);
    const Bitboard fromTo = SquareBit(from) | SquareBit(to);

    if (piece == PAWN)
        UnmakePawn<Us>(from, to, captured, Promotion(move));
    else if (piece == KING)
        UnmakeKing<Us>(from, to);

    if (move & SLIDER_MOVES)
        ToggleSliderUnions(piece, fromTo);
    PieceBB[piece][Us] ^= fromTo;
    ColourBB[Us] ^= fromTo;
    Board[from] = piece;
    Board[to] = captured;
    ToggleOccupancy(from);
    if (captured != EMPTY)
        ReturnCaptured<Us>(to, captured);
    else
        ToggleOccupancy(to);
}

void UnmakeMove() {
    assert(Ply > 0 && LastMove() != NO_MOVE);
    const UndoRecord& record = UndoStack[--Ply];
    SideToMove = ChangeSide(SideToMove);
    if (SideToMove == WHITE)
        UnmakeMoveFor<WHITE>(record.move);
    else
        UnmakeMoveFor<BLACK>(record.move);
    CastleRights = record.castleRights;
    FiftyCount = record.fiftyCount;
    PstSumA = record.pstSumA;
    PstSumB = record.pstSumB;
    PosKey = record.posKey;
    MaterialIndex = record.materialIndex;
    assert(SampleIsConsistent());
}

void MakeNullMove() {
    assert(Ply >= 0 && Ply < UNDO_RECORDS);
    UndoRecord& record = UndoStack[Ply++];
    SaveRecord(record);
    record.move = NO_MOVE;
    SideToMove = ChangeSide(SideToMove);
}

void UnmakeNullMove() {
    assert(Ply > 0 && LastMove() == NO_MOVE);
    Ply--;
    SideToMove = ChangeSide(SideToMove);
}
