#include "eval/endings/endings.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "board/attackers.h"
#include "board/pawns.h"
#include "eval/endings/king_pawn_bitbase.h"
#include "eval/material/material.h"

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

// Steps on the way to mate, centipawns: their king from the centre, the kings together, their king
// toward the corner of the bishop, our pawns.
constexpr int32_t EDGE_STEP = 10;
constexpr int32_t KINGS_STEP = 8;
constexpr int32_t CORNER_STEP = 25;
constexpr int32_t PAWN_STEP = 10;

// A queen against a rook: won, but not by all who try.
constexpr int32_t HARD_WIN = KNOWN_WIN / 3;
// A lone pawn that wins, and what each of its steps adds: less than the queen that it will be.
constexpr int32_t WON_PAWN = 400;
constexpr int32_t WON_PAWN_STEP = 40;

// A draw in which a phase unit more may still be tried for a win, and a knight goes astray.
constexpr int32_t DRAWN_UNIT = 8;
constexpr int32_t ASTRAY_STEP = 8;

// A rook against a pawn by how many steps too late the pawn comes, from LEAST_MARGIN on; with more
// than the last it is won, the more surely the nearer our king.
constexpr int LEAST_MARGIN = -3;
constexpr int32_t RookByMargin[] = {12, 20, 35, 110, 210, 290, 340, 370};
constexpr int32_t WON_ROOK = 390;
constexpr int32_t WON_ROOK_STEP = 6;

// A queen against a pawn, won with more for each step that it has to go and that our king is near;
// and drawn by stalemate, unless our king is nearer the promotion square than this.
constexpr int32_t WON_QUEEN = 900;
constexpr int32_t WON_QUEEN_STEP = 10;
constexpr int NEAR_REFUGE = 4;
constexpr int32_t DRAWN_QUEEN = 20;
constexpr int32_t DRAWN_QUEEN_STEP = 4;

// Bishops and a pawn that is stopped: what its rank adds is for whoever likes to try. A king so
// near the path helps the bishop that watches it.
constexpr int32_t STOPPED_PAWN = 10;
constexpr int32_t STOPPED_PAWN_STEP = 2;
constexpr int NEAR_PATH = 3;

// The longest way of a king, from which nearness is counted.
constexpr int LONGEST_WAY = 7;

} // namespace

// Material signature of two or three men; kings are always there.
template <Colour Us> static constexpr int Signature(Piece ours, Piece theirs, Piece ourSecond) {
    return MaterialWeight[ours][Us] + MaterialWeight[ourSecond][Us] +
           MaterialWeight[theirs][ChangeSide(Us)];
}

// Grows as the king comes nearer, from 0 across the board to 7 on the square.
static int Nearness(int king, int sq) {
    return LONGEST_WAY - KingSteps(king, sq);
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
    return EDGE_STEP * FromCentre(theirKing) + KINGS_STEP * Nearness(KingSquare[Us], theirKing);
}

// Bishop and knight mate in a corner of the bishop's colour only.
template <Colour Us> static int32_t DriveToCorner() {
    const int theirKing = KingSquare[ChangeSide(Us)];
    const bool light = (PieceBB[BISHOP][Us] & LIGHT_SQUARES) != 0;
    const int file = light ? 7 - FileOf(theirKing) : FileOf(theirKing);
    const int rank = RankOf(theirKing);
    // Steps along the edges to the nearer of a1 and h8, with the files mirrored h1 and a8.
    const int steps = std::min(file + rank, 14 - file - rank);
    return CORNER_STEP * (LONGEST_WAY - steps) + DriveToEdge<Us>();
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
        value += PAWN_STEP * RelativeRank(Us, PopLowest(pawns));
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
    const int corner = PromotionSquare<Us>(LowestSquare(pawns));
    return !(PieceBB[BISHOP][Us] & SquaresLike(corner)) &&
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
    const int corner = PromotionSquare<Us>(LowestSquare(pawn));
    const bool cornerTaken = (KnightAttacks[corner] & PieceBB[KNIGHT][Us]) != 0;
    return KingSteps(KingSquare[Them], corner) <= 1 && !(KingAttacks[KingSquare[Us]] & pawn) &&
           (!cornerTaken || SideToMove == Them);
}

template <Colour Us> static Verdict KingAndPawn() {
    const int pawn = LowestSquare(PieceBB[PAWN][Us]);
    if (!KingPawnWins(Us, KingSquare[Us], pawn, KingSquare[ChangeSide(Us)], SideToMove))
        return DRAW;
    return WON_PAWN + WON_PAWN_STEP * RelativeRank(Us, pawn);
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
    return ASTRAY_STEP * (KingSteps(KingSquare[Them], LowestSquare(PieceBB[KNIGHT][Them])) - 1);
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
        return HARD_WIN + Material[Us] - Material[Them] + DriveToEdge<Us>();
    const bool pairAgainstKnight = MenCount == 5 && PieceCount[BISHOP][Us] == 2 &&
                                   PieceCount[KNIGHT][Them] == 1 && CanMate<Us>();
    if (edge > DRAWN_EDGE || pairAgainstKnight)
        return UNKNOWN;
    return DRAWN_UNIT * edge + DriveToEdge<Us>() / 4 + KnightAstray<Us>();
}

// Drawn when the pawn comes so far with its king's help that it costs the rook. That is mostly a
// matter of counting: the steps of the pawn to its promotion and of its king to the pawn, against
// those of the other king to the promotion square.
template <Colour Us> static Verdict RookAgainstPawn() {
    constexpr Colour Them = ChangeSide(Us);
    const int pawn = LowestSquare(PieceBB[PAWN][Them]);
    const int promotion = PromotionSquare<Them>(pawn);
    const int steps = 7 - RelativeRank(Them, pawn);
    const int ourSteps = KingSteps(KingSquare[Us], promotion);
    const int margin = steps + KingSteps(KingSquare[Them], pawn) - ourSteps + (SideToMove == Us);
    const bool before = FileOf(KingSquare[Us]) == FileOf(pawn) &&
                        RelativeRank(Us, KingSquare[Us]) < RelativeRank(Us, pawn);
    const int row = std::max(margin, LEAST_MARGIN) - LEAST_MARGIN;
    if (before || row >= int(std::size(RookByMargin)))
        return WON_ROOK + WON_ROOK_STEP * (LONGEST_WAY - ourSteps);
    return RookByMargin[row];
}

// Won but for pawns one step from promotion: on a rook's or bishop's file their king finds refuge
// in stalemate, unless ours is near.
template <Colour Us> static Verdict QueenAgainstPawn() {
    constexpr Colour Them = ChangeSide(Us);
    constexpr Bitboard refuges = FileBB(0) | FileBB(2) | FileBB(5) | FileBB(7);
    const int pawn = LowestSquare(PieceBB[PAWN][Them]);
    const int promotion = PromotionSquare<Them>(pawn);
    const int steps = 7 - RelativeRank(Them, pawn);
    const int theirSteps = KingSteps(KingSquare[Them], promotion);
    const bool refuge = (refuges & SquareBit(pawn)) && theirSteps <= 2;
    if (steps == 1 && refuge) {
        if (theirSteps == 2)
            return UNKNOWN;
        if (KingSteps(KingSquare[Us], promotion) + (SideToMove == Them) >= NEAR_REFUGE)
            return DRAWN_QUEEN + DRAWN_QUEEN_STEP * Nearness(KingSquare[Us], promotion);
    }
    // Queening or a step into the refuge is for the search to see.
    if (SideToMove == Them && (steps == 1 || (steps == 2 && refuge)))
        return UNKNOWN;
    return WON_QUEEN + WON_QUEEN_STEP * (steps + Nearness(KingSquare[Us], pawn));
}

// A king before the pawn holds where the bishop cannot drive it away, and with bishops of opposite
// colours it needs not even stand there as long as its bishop watches the path.
template <Colour Us> static Verdict BishopAndPawnAgainstBishop() {
    constexpr Colour Them = ChangeSide(Us);
    const int pawn = LowestSquare(PieceBB[PAWN][Us]);
    const int theirKing = KingSquare[Them];
    const Bitboard path = PathAhead<Us>(pawn);
    const bool ourBishopLight = (PieceBB[BISHOP][Us] & LIGHT_SQUARES) != 0;
    const bool opposite = ourBishopLight != ((PieceBB[BISHOP][Them] & LIGHT_SQUARES) != 0);
    const bool before = (path & SquareBit(theirKing)) != 0;
    const bool safe = ((LIGHT_SQUARES & SquareBit(theirKing)) != 0) != ourBishopLight;
    const bool watched = BishopAttacks(LowestSquare(PieceBB[BISHOP][Them])) & path;
    if ((before && (safe || opposite)) ||
        (opposite && watched && KingSteps(theirKing, pawn + AheadStep<Us>) <= NEAR_PATH))
        return STOPPED_PAWN + STOPPED_PAWN_STEP * RelativeRank(Us, pawn);
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

std::optional<int32_t> EvaluateEnding() {
    if (PieceCount[KING][WHITE] != 1 || PieceCount[KING][BLACK] != 1)
        return UNKNOWN;
    const Colour ahead = Material[BLACK] > Material[WHITE] ? BLACK : WHITE;
    const Verdict verdict = ahead == WHITE ? Judge<WHITE>() : Judge<BLACK>();
    if (!verdict || SideToMove == ahead)
        return verdict;
    return -*verdict;
}

int32_t CapUnwinnable(int32_t blackViewScore) {
    const Colour ahead = blackViewScore > 0 ? BLACK : WHITE;
    const bool unwinnable = PieceCount[PAWN][ahead] == 0 && HeavyCount[ahead] == 0 &&
                            (CurrentMaterial().flags[ahead] & MATERIAL_CANNOT_WIN);
    return unwinnable ? 0 : blackViewScore;
}
