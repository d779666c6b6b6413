#include "eval/endings/drawish_endings.h"

#include "board/pawns.h"
#include "eval/parameters/parameters.h"
#include "eval/pawns/passer_race.h"
#include "eval/pawns/pawn_structure.h"

// Below, Us is the side that is ahead.

namespace {

constexpr int32_t FULL_SCALE = 256;

// Phase units. With more of them on one side there are attacks, and nothing here applies.
constexpr int MOST_UNITS = 12;
constexpr int ROOK_UNITS = PiecePhaseUnits[ROOK];
constexpr int MINOR_UNITS = PiecePhaseUnits[KNIGHT];

// A king so far from a rook's pawn is on the other wing.
constexpr int FAR_KING = 5;

// Steps from a rook's pawn to a king that hides behind it, and from its promotion square to one
// that keeps the other king in there.
constexpr int BEHIND_PAWN = 2;
constexpr int SHUTS_IN = 4;

constexpr Bitboard ROOK_FILES = FILE_A | FILE_H;
constexpr Bitboard QUEEN_SIDE = SquaresOfFiles(0x0f);

} // namespace

// Whether the king stands in the corner or beside it, on the second square of the file or the rank
// or of the diagonal.
static bool KingAtCorner(Colour side, int corner) {
    return KingSteps(KingSquare[side], corner) <= 1;
}

static bool OnOneRookFile(Bitboard pawns) {
    return pawns && (!(pawns & ~FILE_A) || !(pawns & ~FILE_H));
}

// All on the rook's and the knight's file of one wing, with a rook's pawn among them.
static bool OnOneEdge(Bitboard pawns) {
    return ((pawns & FILE_A) && !(pawns & ~(FILE_A | FILE_A << 1))) ||
           ((pawns & FILE_H) && !(pawns & ~(FILE_H | FILE_H >> 1)));
}

static bool OnOneSide(Bitboard pawns) {
    return !(pawns & QUEEN_SIDE) || !(pawns & ~QUEEN_SIDE);
}

// Each side has one piece and it is of this kind.
static bool OnePieceEach(Piece piece) {
    return PieceCount[piece][WHITE] == 1 && PieceCount[piece][BLACK] == 1 &&
           PhaseUnits[WHITE] == PiecePhaseUnits[piece] &&
           PhaseUnits[BLACK] == PiecePhaseUnits[piece];
}

// Bishops that never meet: the other side stands on the squares that ours does not see. Rooks
// beside them make threats, so that two pawns more are too many then.
template <Colour Us> static bool OppositeBishops() {
    constexpr Colour Them = ChangeSide(Us);
    if (PieceCount[BISHOP][Us] != 1 || PieceCount[BISHOP][Them] != 1 ||
        PhaseUnits[Us] != PhaseUnits[Them] || PhaseUnits[Us] > MINOR_UNITS + ROOK_UNITS)
        return false;
    const Bitboard bishops = PieceBB[BISHOP][WHITE] | PieceBB[BISHOP][BLACK];
    const int morePawns = PieceCount[PAWN][Us] - PieceCount[PAWN][Them];
    return (bishops & LIGHT_SQUARES) && (bishops & ~LIGHT_SQUARES) &&
           morePawns <= (HeavyCount[Us] == 0 ? 2 : 1);
}

// Rook's pawns with no piece but a bishop that cannot attack their corner, or with none at all. The
// corner is the other king's when it is there before ours and before the pawn; standing there it
// holds against a knight's pawn beside them as well.
template <Colour Us> static bool WrongRookPawn() {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard pawns = PieceBB[PAWN][Us];
    const Bitboard bishops = PieceBB[BISHOP][Us];
    if (PhaseUnits[Us] > MINOR_UNITS || (PhaseUnits[Us] > 0 && !bishops) || !OnOneEdge(pawns))
        return false;
    const int corner = PromotionSquare<Us>(LowestSquare(pawns & ROOK_FILES));
    if (bishops & SquaresLike(corner))
        return false;
    if (!OnOneRookFile(pawns))
        return bishops && KingAtCorner(Them, corner);
    return KingAtCorner(Them, corner) ||
           (KingSteps(KingSquare[Them], corner) < KingSteps(KingSquare[Us], corner) &&
            UnstoppableMoves(Us) == 0);
}

// A rook and a pawn against a rook: the king before the pawn holds; and a rook's pawn is held, with
// its own rook before it, by the rook behind it and a king that no check drives from cover.
template <Colour Us> static bool LonePawnHeld(Bitboard pawns) {
    constexpr Colour Them = ChangeSide(Us);
    const int pawn = LowestSquare(pawns);
    const Bitboard ahead = PassedMask[Us][pawn];
    const bool rooksPawn = (SquareBit(pawn) & ROOK_FILES) != 0;
    // Late on, our king at the side of its pawn's path bars the other from it.
    const bool barred = RelativeRank(Us, pawn) >= 5 && (ahead & SquareBit(KingSquare[Us]));
    if (ahead & SquareBit(KingSquare[Them]))
        return rooksPawn || !barred;
    if (!rooksPawn)
        return false;
    const int corner = PromotionSquare<Us>(pawn);
    // The cover is far away on the promotion rank, or behind the pawn when their king is near it.
    if (PieceBB[ROOK][Us] & PathAhead<Us>(pawn))
        return KingAtCorner(Them, corner ^ 7) || KingSteps(KingSquare[Them], pawn) <= BEHIND_PAWN;
    return KingSquare[Us] == corner && KingSteps(KingSquare[Them], corner) <= SHUTS_IN;
}

// A passed rook's pawn is all that is extra, and from behind it the other rook holds it and the
// rook that guards it. A king that goes there leaves its own pawns; one that is there already wins.
template <Colour Us> static bool EdgePasserHeld() {
    constexpr Colour Them = ChangeSide(Us);
    const int rook = LowestSquare(PieceBB[ROOK][Them]);
    const Bitboard runners = PassedPawns(Us) & ROOK_FILES & FileBB(FileOf(rook));
    if (runners == 0)
        return false;
    const int sq = Us == WHITE ? HighestSquare(runners) : LowestSquare(runners);
    const Bitboard behind = RookAttacks(sq) & ~PassedMask[Us][sq];
    return (behind & SquareBit(rook)) != 0 && KingSteps(KingSquare[Us], sq) >= FAR_KING;
}

// Rook endings are drawn with one pawn more when the pawns stand on one side of the board and the
// other king is there too, or when the one is a rook's pawn that is held from behind.
template <Colour Us> static bool RookEnding() {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard ours = PieceBB[PAWN][Us];
    const Bitboard theirs = PieceBB[PAWN][Them];
    if (!OnePieceEach(ROOK) || !ours || CountBits(ours) > CountBits(theirs) + 1)
        return false;
    if (!theirs)
        return LonePawnHeld<Us>(ours);
    const Bitboard pawns = ours | theirs;
    const Bitboard side = pawns & QUEEN_SIDE ? QUEEN_SIDE : ~QUEEN_SIDE;
    return (OnOneSide(pawns) && (side & SquareBit(KingSquare[Them]))) || EdgePasserHeld<Us>();
}

// Without a pawn a minor piece more does not win, nor a rook for a minor piece; the exception is
// two bishops against a knight.
template <Colour Us> static bool NoPawnToPromote() {
    constexpr Colour Them = ChangeSide(Us);
    if (PieceCount[PAWN][Us] > 0 || PhaseUnits[Them] == 0 ||
        PhaseUnits[Us] - PhaseUnits[Them] > MINOR_UNITS)
        return false;
    return PieceCount[BISHOP][Us] < 2 || HeavyCount[Us] > 0 || PieceBB[BISHOP][Them];
}

// A queen cannot shelter her own king from checks at the edge: with a rook's pawn she does not win
// against a king before it, nor against one in the corner furthest from it.
template <Colour Us> static bool QueenAndRookPawn() {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard pawns = PieceBB[PAWN][Us];
    if (!OnePieceEach(QUEEN) || !OnOneRookFile(pawns) ||
        PieceCount[PAWN][Us] > PieceCount[PAWN][Them] + 1)
        return false;
    const int corner = PromotionSquare<Us>(LowestSquare(pawns));
    return KingAtCorner(Them, corner) || KingAtCorner(Them, corner ^ 63);
}

namespace {

struct DrawishKind {
    bool (*holds[2])(); // by the colour that is ahead
    int32_t EvalParameters::*scale;
};

// The first that holds decides.
constexpr DrawishKind DrawishKinds[] = {
    {{OppositeBishops<WHITE>, OppositeBishops<BLACK>}, &EvalParameters::OppositeBishopsScale},
    {{WrongRookPawn<WHITE>, WrongRookPawn<BLACK>}, &EvalParameters::WrongRookPawnScale},
    {{RookEnding<WHITE>, RookEnding<BLACK>}, &EvalParameters::RookEndingScale},
    {{NoPawnToPromote<WHITE>, NoPawnToPromote<BLACK>}, &EvalParameters::NoPawnScale},
    {{QueenAndRookPawn<WHITE>, QueenAndRookPawn<BLACK>}, &EvalParameters::QueenRookPawnScale},
};

} // namespace

int32_t DrawishScale(int32_t blackViewScore) {
    if (blackViewScore == 0 || PhaseUnits[WHITE] > MOST_UNITS || PhaseUnits[BLACK] > MOST_UNITS ||
        PieceCount[KING][WHITE] != 1 || PieceCount[KING][BLACK] != 1)
        return FULL_SCALE;
    const Colour ahead = blackViewScore > 0 ? BLACK : WHITE;
    for (const DrawishKind& kind : DrawishKinds) {
        if (kind.holds[ahead]())
            return Params.*kind.scale;
    }
    return FULL_SCALE;
}
