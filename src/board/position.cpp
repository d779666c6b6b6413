#include "board/position.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <initializer_list>
#include <iterator>

#include "board/keys.h"
#include "board/piece_square.h"

constinit Colour SideToMove = WHITE;
constinit Bitboard ColourBB[2] = {};
constinit Bitboard PieceBB[PIECE_CODES][2] = {};
constinit Bitboard OrthoSliders = 0;
constinit Bitboard DiagSliders = 0;
constinit int32_t RankOcc[8] = {};
constinit int32_t FileOcc[8] = {};
constinit int32_t DiagOcc[15] = {};
constinit int32_t AntiDiagOcc[15] = {};
constinit Piece Board[64] = {};
constinit int32_t KingSquare[2] = {};
constinit int32_t CastleRights = 0;
constinit int32_t FiftyCount = 0;
constinit uint64_t PosKey = 0;
constinit uint64_t PawnKey = 0;
constinit int32_t MaterialIndex = 0;
constinit int32_t PieceCount[PIECE_CODES][2] = {};
constinit int32_t Material[2] = {};
constinit int32_t PhaseUnits[2] = {};
constinit int32_t HeavyCount[2] = {};
constinit int32_t MinorCount[2] = {};
constinit int32_t MenCount = 0;
constinit int16_t PstSumA = 0;
constinit int16_t PstSumB = 0;
constinit int32_t Ply = 0;
constinit int32_t SetupPly = 0;
constinit UndoRecord UndoStack[UNDO_RECORDS] = {};

void ClearBoard() {
    for (const Colour c : {WHITE, BLACK}) {
        ColourBB[c] = 0;
        Material[c] = PhaseUnits[c] = HeavyCount[c] = MinorCount[c] = 0;
        for (int piece = 0; piece < PIECE_CODES; piece++) {
            PieceBB[piece][c] = 0;
            PieceCount[piece][c] = 0;
        }
    }
    OrthoSliders = DiagSliders = 0;
    std::fill(std::begin(RankOcc), std::end(RankOcc), 0);
    std::fill(std::begin(FileOcc), std::end(FileOcc), 0);
    std::fill(std::begin(DiagOcc), std::end(DiagOcc), 0);
    std::fill(std::begin(AntiDiagOcc), std::end(AntiDiagOcc), 0);
    std::fill(std::begin(Board), std::end(Board), EMPTY);
    MenCount = FiftyCount = MaterialIndex = 0;
    PstSumA = PstSumB = 0;
    PosKey = PawnKey = 0;
}

static void ToggleOccupancy(int sq) {
    RankOcc[RankOf(sq)] ^= 1 << FileOf(sq);
    FileOcc[FileOf(sq)] ^= 1 << RankOf(sq);
    DiagOcc[FileOf(sq) + RankOf(sq)] ^= 1 << RankOf(sq);
    AntiDiagOcc[FileOf(sq) - RankOf(sq) + 7] ^= 1 << RankOf(sq);
}

static void ToggleSliderUnions(int sq, int type) {
    if (type == ROOK || type == QUEEN)
        OrthoSliders ^= SquareBit(sq);
    if (type == BISHOP || type == QUEEN)
        DiagSliders ^= SquareBit(sq);
}

// Counts one man in (sign 1) or out (sign -1) of every sum but the material signature.
static void CountMan(int sq, Colour colour, Piece type, int sign) {
    MenCount += sign;
    PieceCount[type][colour] += sign;
    if (type != KING)
        Material[colour] += sign * PieceValue[type];
    PhaseUnits[colour] += sign * PiecePhaseUnits[type];
    if (type == ROOK || type == QUEEN)
        HeavyCount[colour] += sign * (type == QUEEN ? 2 : 1);
    if (type == KNIGHT || type == BISHOP)
        MinorCount[colour] += sign;
    const int view = colour == BLACK ? sign : -sign;
    PstSumA = int16_t(PstSumA + view * PstA[type][colour][sq]);
    PstSumB = int16_t(PstSumB + view * PstB[type][colour][sq]);
    PosKey ^= PieceKeys[colour][type][sq];
    if (type == PAWN)
        PawnKey ^= PieceKeys[colour][type][sq];
}

void PlacePiece(int square, Colour colour, Piece type) {
    assert(IsSquare(square) && Board[square] == EMPTY && PieceValue[type] != 0);
    ColourBB[colour] |= SquareBit(square);
    Board[square] = type;
    ToggleOccupancy(square);
    ToggleSliderUnions(square, type);
    CountMan(square, colour, type, 1);
    if (type == KING) {
        PieceBB[KING][colour] = SquareBit(square);
        KingSquare[colour] = square;
        return;
    }
    PieceBB[type][colour] |= SquareBit(square);
    // Pawns never make the signature invalid; the third of any other kind does.
    if (MaterialIndex != MATERIAL_INVALID) {
        if (type == PAWN || PieceCount[type][colour] <= 2)
            MaterialIndex += MaterialWeight[type][colour];
        else
            MaterialIndex = MATERIAL_INVALID;
    }
}

void RemovePiece(int square) {
    assert(IsSquare(square));
    const Piece type = Board[square];
    if (type == EMPTY)
        return;
    const Colour colour = ColourOn(square);
    ColourBB[colour] &= ~SquareBit(square);
    PieceBB[type][colour] &= ~SquareBit(square);
    Board[square] = EMPTY;
    ToggleOccupancy(square);
    ToggleSliderUnions(square, type);
    CountMan(square, colour, type, -1);
    RecomputeMaterialIndex();
}

void SetStartPosition() {
    constexpr Piece backRank[8] = {ROOK, KNIGHT, BISHOP, QUEEN, KING, BISHOP, KNIGHT, ROOK};
    Ply = SetupPly = 0;
    ClearBoard();
    for (int file = 0; file < 8; file++) {
        PlacePiece(file, WHITE, backRank[file]);
        PlacePiece(8 + file, WHITE, PAWN);
        PlacePiece(56 + file, BLACK, backRank[file]);
        PlacePiece(48 + file, BLACK, PAWN);
    }
    SideToMove = WHITE;
    CastleRights = ALL_CASTLE_RIGHTS;
}

void DropImpossibleCastleRights() {
    for (const Colour c : {WHITE, BLACK}) {
        const int home = KingHome(c);
        const bool kingAtHome = (PieceBB[KING][c] & SquareBit(home)) != 0;
        if (!kingAtHome || !(PieceBB[ROOK][c] & SquareBit(home + 3)))
            CastleRights &= ~ShortRight(c);
        if (!kingAtHome || !(PieceBB[ROOK][c] & SquareBit(home - 4)))
            CastleRights &= ~LongRight(c);
    }
}

void RecomputeMaterialIndex() {
    int index = 0;
    for (const Piece type : {QUEEN, ROOK, BISHOP, KNIGHT, PAWN}) {
        for (const Colour c : {WHITE, BLACK}) {
            if (type != PAWN && PieceCount[type][c] > 2) {
                MaterialIndex = MATERIAL_INVALID;
                return;
            }
            index += PieceCount[type][c] * MaterialWeight[type][c];
        }
    }
    // Only a board with more than eight pawns of a colour gets here.
    if (index > MATERIAL_INVALID) {
        std::printf("Error when indexing material!\n");
        std::fflush(stdout);
    }
    MaterialIndex = index;
}

void ForgetOldHistory() {
    if (Ply < MAX_GAME_PLY)
        return;
    const int kept = MAX_GAME_PLY / 2;
    std::copy(UndoStack + Ply - kept, UndoStack + Ply, UndoStack);
    SetupPly = std::max(SetupPly - (Ply - kept), 0);
    Ply = kept;
}
