#include "board/moves/generate.h"

#include <cassert>

#include "board/attackers.h"
#include "board/exchange.h"
#include "board/moves/order_tables.h"
#include "board/pawns.h"

constinit ScoredMove MoveStack[MOVE_STACK_SIZE] = {};
constinit int32_t MoveStackTop = 0;

namespace {

constexpr int32_t EN_PASSANT_SCORE = 100901;
constexpr int32_t SAFE_PROMOTION = 108000;

// Bonus of a losing capture by its success ratio in sixteenths. Captures that always succeeded
// (place 16) fall back to 0: meant so, as is the step up at half of that.
constexpr int32_t LosingCaptureBonus[17] = {-128000, -64000, -32000, 0,     10000, 20000,
                                            30000,   40000,  50000,  50000, 50000, 50000,
                                            50000,   50000,  50000,  50000, 0};
// Fewer tries than this prove nothing.
constexpr int32_t MIN_CAPTURE_TRIES = 8;

constexpr Piece CapturePromotions[] = {QUEEN, KNIGHT, ROOK, BISHOP};
constexpr Piece PushPromotions[] = {QUEEN, ROOK, KNIGHT, BISHOP};

} // namespace

static inline void EmitCapture(Move move) {
    PushMove(move, CaptureScore(move));
}

// Success ratio of a losing capture in 256ths, 0 while too little is known.
static int CaptureRatio(Move move) {
    const int slot = CaptureStatsIndex(move, SideToMove);
    if (CaptureStats.stamp[slot] != HashAge) {
        CaptureStats.stamp[slot] = HashAge;
        CaptureStats.tries[slot] = CaptureStats.successes[slot] = 0;
        return 0;
    }
    const int tries = CaptureStats.tries[slot];
    if (tries <= MIN_CAPTURE_TRIES || (Promotion(move) != EMPTY && Promotion(move) != QUEEN))
        return 0;
    return CaptureStats.successes[slot] * 256 / tries;
}

int32_t CaptureScore(Move move) {
    if (!(move & CAPTURE_OR_PROMOTION))
        return EN_PASSANT_SCORE;
    const int32_t gain = 10 * OrderingValue[CapturedPiece(move)] - OrderingValue[MovingPiece(move)];
    if (SafeExchange(move))
        return gain + (Promotion(move) != EMPTY ? SAFE_PROMOTION : SAFE_CAPTURE);
    return gain + LosingCaptureBonus[CaptureRatio(move) >> 4];
}

template <Colour Us> static void GeneratePawnCaptures(Bitboard targets) {
    for (Bitboard pawns = PieceBB[PAWN][Us]; pawns;) {
        const int from = PopLowest(pawns);
        for (Bitboard b = PawnAttacks[Us][from] & targets; b;) {
            const int to = PopLowest(b);
            const Move move = MoveWord(from, to, PAWN, Board[to]);
            if (RelativeRank(Us, from) != PROMOTING_RANK) {
                EmitCapture(move);
                continue;
            }
            for (const Piece promotion : CapturePromotions)
                EmitCapture(move | Move(promotion) << PROMOTION_SHIFT);
        }
    }
    for (Bitboard pawns = EnPassantTakers(Us); pawns;)
        EmitCapture(MoveWord(PopLowest(pawns), To(LastMove()) + AheadStep<Us>, PAWN));
}

template <Piece Type> static inline Bitboard AttacksOf(int sq) {
    if constexpr (Type == KNIGHT)
        return KnightAttacks[sq];
    else if constexpr (Type == BISHOP)
        return BishopAttacks(sq);
    else if constexpr (Type == ROOK)
        return RookAttacks(sq);
    else if constexpr (Type == QUEEN)
        return QueenAttacks(sq);
    else
        return KingAttacks[sq];
}

template <Colour Us, Piece Type> static inline void GeneratePieceCaptures(Bitboard targets) {
    for (Bitboard men = PieceBB[Type][Us]; men;) {
        const int from = PopLowest(men);
        for (Bitboard b = AttacksOf<Type>(from) & targets; b;) {
            const int to = PopLowest(b);
            EmitCapture(MoveWord(from, to, Type, Board[to]));
        }
    }
}

template <Colour Us> static void GenerateCapturesFor(Bitboard targets) {
    GeneratePawnCaptures<Us>(targets);
    GeneratePieceCaptures<Us, KNIGHT>(targets);
    GeneratePieceCaptures<Us, BISHOP>(targets);
    GeneratePieceCaptures<Us, ROOK>(targets);
    GeneratePieceCaptures<Us, QUEEN>(targets);
    GeneratePieceCaptures<Us, KING>(targets);
}

void GenerateCaptures(Bitboard targets) {
    if (SideToMove == WHITE)
        GenerateCapturesFor<WHITE>(targets);
    else
        GenerateCapturesFor<BLACK>(targets);
}

// Pawns of Us one step before promotion with a free square ahead.
template <Colour Us> static Bitboard PromotingPawns() {
    const Bitboard pawns = PieceBB[PAWN][Us] & RelativeRankBB(Us, PROMOTING_RANK);
    return pawns & ~Ahead<ChangeSide(Us)>(Occupied());
}

template <Colour Us> static void GeneratePromotionsFor() {
    for (Bitboard pawns = PromotingPawns<Us>(); pawns;) {
        const int from = HighestSquare(pawns);
        pawns ^= SquareBit(from);
        for (const Piece promotion : PushPromotions)
            EmitCapture(MoveWord(from, from + AheadStep<Us>, PAWN, EMPTY, promotion));
    }
}

void GeneratePromotions() {
    if (SideToMove == WHITE)
        GeneratePromotionsFor<WHITE>();
    else
        GeneratePromotionsFor<BLACK>();
}

template <Colour Us> static void GeneratePromotionsQNFor() {
    const Bitboard enemyKing = SquareBit(KingSquare[ChangeSide(Us)]);
    for (Bitboard pawns = PromotingPawns<Us>(); pawns;) {
        const int from = HighestSquare(pawns);
        const int to = from + AheadStep<Us>;
        pawns ^= SquareBit(from);
        EmitCapture(MoveWord(from, to, PAWN, EMPTY, QUEEN));
        if (KnightAttacks[to] & enemyKing)
            EmitCapture(MoveWord(from, to, PAWN, EMPTY, KNIGHT));
    }
}

void GeneratePromotionsQN() {
    if (SideToMove == WHITE)
        GeneratePromotionsQNFor<WHITE>();
    else
        GeneratePromotionsQNFor<BLACK>();
}

template <Colour Us> static inline void EmitQuiet(Move move, const int32_t* history) {
    PushMove(move, history[HistoryIndex(move, 0, Us)]);
}

template <Colour Us> static void GenerateCastling(const int32_t* history) {
    constexpr Colour Them = ChangeSide(Us);
    constexpr int king = KingHome(Us);
    constexpr Bitboard shortPath = SquareBit(king + 1) | SquareBit(king + 2);
    constexpr Bitboard longPath = SquareBit(king - 1) | SquareBit(king - 2) | SquareBit(king - 3);
    if ((CastleRights & ShortRight(Us)) && !(Occupied() & shortPath) &&
        !SquareAttacked(Them, king + 1) && !SquareAttacked(Them, king + 2))
        EmitQuiet<Us>(MoveWord(king, king + 2, KING), history);
    // The rook may pass an attacked square, the king may not.
    if ((CastleRights & LongRight(Us)) && !(Occupied() & longPath) &&
        !SquareAttacked(Them, king - 1) && !SquareAttacked(Them, king - 2))
        EmitQuiet<Us>(MoveWord(king, king - 2, KING), history);
}

template <Colour Us> static void GeneratePawnPushes(const int32_t* history) {
    const Bitboard empty = ~Occupied();
    Bitboard pawns =
        PieceBB[PAWN][Us] & ~RelativeRankBB(Us, PROMOTING_RANK) & Ahead<ChangeSide(Us)>(empty);
    while (pawns) {
        const int from = PopLowest(pawns);
        const int to = from + AheadStep<Us>;
        EmitQuiet<Us>(MoveWord(from, to, PAWN), history);
        if (RelativeRank(Us, from) == DOUBLE_STEP_RANK && (empty & SquareBit(to + AheadStep<Us>)))
            EmitQuiet<Us>(MoveWord(from, to + AheadStep<Us>, PAWN), history);
    }
}

template <Colour Us, Piece Type>
static inline void GeneratePieceQuiet(Bitboard empty, const int32_t* history) {
    for (Bitboard men = PieceBB[Type][Us]; men;) {
        const int from = PopLowest(men);
        for (Bitboard b = AttacksOf<Type>(from) & empty; b;)
            EmitQuiet<Us>(MoveWord(from, PopLowest(b), Type), history);
    }
}

template <Colour Us> static void GenerateQuietFor(const int32_t* history) {
    const Bitboard empty = ~Occupied();
    GenerateCastling<Us>(history);
    GeneratePieceQuiet<Us, KNIGHT>(empty, history);
    GeneratePieceQuiet<Us, BISHOP>(empty, history);
    GeneratePawnPushes<Us>(history);
    GeneratePieceQuiet<Us, ROOK>(empty, history);
    GeneratePieceQuiet<Us, QUEEN>(empty, history);
    GeneratePieceQuiet<Us, KING>(empty, history);
}

void GenerateQuiet(int slice) {
    assert(slice == 0 || slice == 1);
    const int32_t* const history = HistoryTable + slice * HISTORY_SLICE;
    if (SideToMove == WHITE)
        GenerateQuietFor<WHITE>(history);
    else
        GenerateQuietFor<BLACK>(history);
}
