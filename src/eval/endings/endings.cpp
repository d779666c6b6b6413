#include "eval/endings/endings.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "board/attackers.h"
#include "board/position.h"
#include "eval/endings/king_pawn_bitbase.h"
#include "eval/endings/square_colours.h"
#include "eval/material.h"
#include "eval/pawns/passer_race.h"

// Below, Us is the side with more material, and values are centipawns from its view.

namespace {

using Verdict = std::optional<int32_t>;
constexpr Verdict UNKNOWN = std::nullopt;
constexpr Verdict DRAW = 0;

// A win that needs nothing but technique, on top of the material.
constexpr int32_t KNOWN_WIN = 1000;
// However many men a board that was set up may hold.
constexpr int32_t WIN_LIMIT = 20000;

// With more men than this only a bare king makes an ending known.
constexpr int MOST_MEN = 7;

// Differences of phase units.
constexpr int WINNING_EDGE = 5;
constexpr int QUEEN_FOR_ROOK = 4;
constexpr int DRAWN_EDGE = 3;

} // namespace

// Material signature of two or three men; kings are always there.
template <Colour Us> static constexpr int Signature(Piece ours, Piece theirs, Piece ourSecond) {
    return MaterialWeight[ours][Us] + MaterialWeight[ourSecond][Us] +
           MaterialWeight[theirs][ChangeSide(Us)];
}

// The board as Us sees it, its own back rank below.
template <Colour Us> static constexpr int Relative(int sq) {
    return Us == WHITE ? sq : sq ^ 56;
}

// 0 for the four squares in the middle, 6 for the corners.
static int FromCentre(int sq) {
    const int file = FileOf(sq);
    const int rank = RankOf(sq);
    return std::max(3 - file, file - 4) + std::max(3 - rank, rank - 4);
}

// A king is mated at the edge, and with the help of the other king.
template <Colour Us> static int32_t DriveToEdge() {
    const int theirKing = KingSquare[ChangeSide(Us)];
    return 10 * FromCentre(theirKing) + 8 * (7 - KingSteps(KingSquare[Us], theirKing));
}

// Bishop and knight mate in a corner of the bishop's colour only.
template <Colour Us> static int32_t DriveToCorner() {
    const int theirKing = KingSquare[ChangeSide(Us)];
    const bool light = (PieceBB[BISHOP][Us] & LIGHT_SQUARES) != 0;
    const int file = light ? 7 - FileOf(theirKing) : FileOf(theirKing);
    const int rank = RankOf(theirKing);
    // Steps along the edges to the nearer of a1 and h8, with the files mirrored h1 and a8.
    const int steps = std::min(file + rank, 14 - file - rank);
    return 25 * (7 - steps) + DriveToEdge<Us>();
}

// Whether the pieces of Us mate a bare king by themselves.
template <Colour Us> static bool CanMate() {
    const Bitboard bishops = PieceBB[BISHOP][Us];
    return HeavyCount[Us] > 0 || PieceCount[KNIGHT][Us] > 2 ||
           ((bishops & LIGHT_SQUARES) && (bishops & ~LIGHT_SQUARES)) ||
           (bishops && PieceBB[KNIGHT][Us]);
}

// Whether the side to move, which has its king only, is stalemated.
static bool BareKingStalemated() {
    const Colour attacker = ChangeSide(SideToMove);
    const int king = KingSquare[SideToMove];
    Bitboard targets = KingAttacks[king];
    while (targets) {
        if (!SquareAttacked(attacker, PopLowest(targets)))
            return false;
    }
    return !SquareAttacked(attacker, king);
}

// Pieces that mate by themselves, with or without pawns.
template <Colour Us> static int32_t MateDrive() {
    int32_t value = KNOWN_WIN + Material[Us] - Material[ChangeSide(Us)];
    Bitboard pawns = PieceBB[PAWN][Us];
    while (pawns)
        value += 10 * RelativeRank(Us, PopLowest(pawns));
    const bool bishopAndKnight =
        MenCount == 4 && PieceCount[BISHOP][Us] == 1 && PieceCount[KNIGHT][Us] == 1;
    value += bishopAndKnight ? DriveToCorner<Us>() : DriveToEdge<Us>();
    return std::min(value, WIN_LIMIT);
}

// A rook's pawn, or several on one file, does not win against a king in the corner before it, not
// even with a bishop that cannot attack the corner. Us has no other pieces than such bishops.
template <Colour Us> static bool CornerHolds() {
    const Bitboard pawns = PieceBB[PAWN][Us];
    if ((pawns & ~FILE_A) && (pawns & ~FILE_H))
        return false;
    const int corner = Relative<Us>(pawns & FILE_A ? 56 : 63);
    const Bitboard cornerColour =
        SquareBit(corner) & LIGHT_SQUARES ? LIGHT_SQUARES : ~LIGHT_SQUARES;
    return !(PieceBB[BISHOP][Us] & cornerColour) &&
           KingSteps(KingSquare[ChangeSide(Us)], corner) <= 1;
}

// A knight does not help a rook's pawn on the seventh rank out of the corner's way either: while it
// guards the pawn their king goes to and fro between the corner and the square before it, and where
// ours takes those from it there is stalemate. Ours is too near when it guards the pawn, the knight
// when it takes the corner.
template <Colour Us> static bool CornerHoldsAgainstKnight() {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard pawn = PieceBB[PAWN][Us];
    if (MenCount != 4 || PieceCount[KNIGHT][Us] != 1 ||
        !(pawn & (FILE_A | FILE_H) & RelativeRankBB(Us, 6)))
        return false;
    const int corner = LowestSquare(Ahead<Us>(pawn));
    const bool cornerTaken = (KnightAttacks[corner] & PieceBB[KNIGHT][Us]) != 0;
    return KingSteps(KingSquare[Them], corner) <= 1 && !(KingAttacks[KingSquare[Us]] & pawn) &&
           (!cornerTaken || SideToMove == Them);
}

template <Colour Us> static Verdict KingAndPawn() {
    const int pawn = LowestSquare(PieceBB[PAWN][Us]);
    if (!KingPawnWins(Us, KingSquare[Us], pawn, KingSquare[ChangeSide(Us)], SideToMove))
        return DRAW;
    return 400 + 40 * RelativeRank(Us, pawn);
}

template <Colour Us> static Verdict AgainstBareKing() {
    if (SideToMove != Us && BareKingStalemated())
        return DRAW;
    if (CanMate<Us>())
        return MateDrive<Us>();
    if (PieceCount[PAWN][Us] == 0)
        return DRAW;
    if (PieceCount[KNIGHT][Us] == 0 ? CornerHolds<Us>() : CornerHoldsAgainstKnight<Us>())
        return DRAW;
    return MenCount == 3 ? KingAndPawn<Us>() : UNKNOWN;
}

// The knight that strays from its king is lost.
template <Colour Us> static int32_t KnightAstray() {
    constexpr Colour Them = ChangeSide(Us);
    if (MenCount != 4 || PieceCount[ROOK][Us] == 0 || PieceCount[KNIGHT][Them] == 0)
        return 0;
    return 8 * (KingSteps(KingSquare[Them], LowestSquare(PieceBB[KNIGHT][Them])) - 1);
}

// No pawn is left, and both sides have pieces.
template <Colour Us> static Verdict WithoutPawns() {
    constexpr Colour Them = ChangeSide(Us);
    const int edge = PhaseUnits[Us] - PhaseUnits[Them];
    if (edge == 0 || (CurrentMaterial().flags[Us] & MATERIAL_CANNOT_WIN))
        return DRAW;
    if (edge >= WINNING_EDGE)
        return MateDrive<Us>();
    if (edge == QUEEN_FOR_ROOK && MenCount == 4)
        return KNOWN_WIN / 3 + Material[Us] - Material[Them] + DriveToEdge<Us>();
    const bool pairAgainstKnight = MenCount == 5 && PieceCount[BISHOP][Us] == 2 &&
                                   PieceCount[KNIGHT][Them] == 1 && CanMate<Us>();
    if (edge > DRAWN_EDGE || pairAgainstKnight)
        return UNKNOWN;
    return 8 * edge + DriveToEdge<Us>() / 4 + KnightAstray<Us>();
}

// Drawn when the pawn comes so far with its king's help that it costs the rook. That is mostly a
// matter of counting: the steps of the pawn to its promotion and of its king to the pawn, against
// those of the other king to the promotion square.
template <Colour Us> static Verdict RookAgainstPawn() {
    constexpr Colour Them = ChangeSide(Us);
    constexpr int32_t ByMargin[] = {12, 20, 35, 110, 210, 290, 340, 370}; // from -3 to 4
    const int pawn = LowestSquare(PieceBB[PAWN][Them]);
    const int promotion = FileOf(pawn) + (Us == WHITE ? 0 : 56);
    const int steps = 7 - RelativeRank(Them, pawn);
    const int ourSteps = KingSteps(KingSquare[Us], promotion);
    const int margin = steps + KingSteps(KingSquare[Them], pawn) - ourSteps + (SideToMove == Us);
    const bool before = FileOf(KingSquare[Us]) == FileOf(pawn) &&
                        RelativeRank(Us, KingSquare[Us]) < RelativeRank(Us, pawn);
    if (before || margin > 4)
        return 390 + 6 * (7 - ourSteps);
    return ByMargin[std::max(margin, -3) + 3];
}

// Won but for pawns one step from promotion: on a rook's or bishop's file their king finds refuge
// in stalemate, unless ours is near.
template <Colour Us> static Verdict QueenAgainstPawn() {
    constexpr Colour Them = ChangeSide(Us);
    constexpr Bitboard refuges = FILE_A | FILE_A << 2 | FILE_H >> 2 | FILE_H;
    const int pawn = LowestSquare(PieceBB[PAWN][Them]);
    const int promotion = FileOf(pawn) + (Us == WHITE ? 0 : 56);
    const int steps = 7 - RelativeRank(Them, pawn);
    const int theirSteps = KingSteps(KingSquare[Them], promotion);
    const bool refuge = (refuges & SquareBit(pawn)) && theirSteps <= 2;
    if (steps == 1 && refuge) {
        if (theirSteps == 2)
            return UNKNOWN;
        if (KingSteps(KingSquare[Us], promotion) + (SideToMove == Them) >= 4)
            return 20 + 4 * (7 - KingSteps(KingSquare[Us], promotion));
    }
    // Queening or a step into the refuge is for the search to see.
    if (SideToMove == Them && (steps == 1 || (steps == 2 && refuge)))
        return UNKNOWN;
    return 900 + 10 * steps + 10 * (7 - KingSteps(KingSquare[Us], pawn));
}

// A king before the pawn holds where the bishop cannot drive it away, and with bishops of opposite
// colours it needs not even stand there as long as its bishop watches the path.
template <Colour Us> static Verdict BishopAndPawnAgainstBishop() {
    constexpr Colour Them = ChangeSide(Us);
    const int pawn = LowestSquare(PieceBB[PAWN][Us]);
    const int theirKing = KingSquare[Them];
    const Bitboard path = PassedMask[Us][pawn] & FileBB(FileOf(pawn));
    const bool ourBishopLight = (PieceBB[BISHOP][Us] & LIGHT_SQUARES) != 0;
    const bool opposite = ourBishopLight != ((PieceBB[BISHOP][Them] & LIGHT_SQUARES) != 0);
    const bool before = (path & SquareBit(theirKing)) != 0;
    const bool safe = ((LIGHT_SQUARES & SquareBit(theirKing)) != 0) != ourBishopLight;
    const bool watched = BishopAttacks(LowestSquare(PieceBB[BISHOP][Them])) & path;
    if ((before && (safe || opposite)) ||
        (opposite && watched && KingSteps(theirKing, pawn + AheadStep<Us>) <= 3))
        return 10 + 2 * RelativeRank(Us, pawn);
    return UNKNOWN;
}

template <Colour Us> static Verdict Judge() {
    constexpr Colour Them = ChangeSide(Us);
    if (Material[Them] == 0)
        return AgainstBareKing<Us>();
    if (MenCount > MOST_MEN)
        return UNKNOWN;
    if (PieceCount[PAWN][WHITE] + PieceCount[PAWN][BLACK] == 0)
        return WithoutPawns<Us>();
    switch (MaterialIndex) {
    case Signature<Us>(ROOK, PAWN, EMPTY):
        return RookAgainstPawn<Us>();
    case Signature<Us>(QUEEN, PAWN, EMPTY):
        return QueenAgainstPawn<Us>();
    case Signature<Us>(BISHOP, BISHOP, PAWN):
        return BishopAndPawnAgainstBishop<Us>();
    default:
        return UNKNOWN;
    }
}

bool EvaluateEnding(int32_t& score) {
    if (PieceCount[KING][WHITE] != 1 || PieceCount[KING][BLACK] != 1)
        return false;
    const Colour ahead = Material[BLACK] > Material[WHITE] ? BLACK : WHITE;
    const Verdict verdict = ahead == WHITE ? Judge<WHITE>() : Judge<BLACK>();
    if (!verdict)
        return false;
    score = SideToMove == ahead ? *verdict : -*verdict;
    return true;
}

int32_t CapUnwinnable(int32_t blackViewScore) {
    const Colour ahead = blackViewScore > 0 ? BLACK : WHITE;
    const bool unwinnable = PieceCount[PAWN][ahead] == 0 && HeavyCount[ahead] == 0 &&
                            (CurrentMaterial().flags[ahead] & MATERIAL_CANNOT_WIN);
    return unwinnable ? 0 : blackViewScore;
}
