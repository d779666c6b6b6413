#include "board/moves/evasions.h"

#include <cassert>
#include <initializer_list>

#include "board/attackers.h"
#include "board/exchange.h"
#include "board/moves/generate.h"
#include "board/moves/order_tables.h"
#include "board/pawns.h"

namespace {

// Lifts good captures over every quiet reply.
constexpr int32_t GOOD_CAPTURE = 1 << 29;
constexpr int32_t REMEMBERED_REPLY = 10000;
constexpr int32_t LOSING_BLOCK = -100000;

constexpr int32_t REPLY_SLICE = 1;

} // namespace

static void EmitCapture(Move move) {
    const int32_t score = CaptureScore(move);
    PushMove(move, score > 0 ? score + GOOD_CAPTURE : score);
}

static void EmitQuiet(Move move) {
    int32_t score = HistoryTable[HistoryIndex(move, REPLY_SLICE, SideToMove)];
    const Colour us = SideToMove;
    if (EvasionReply[EvasionReplyIndex(LastMove(), KingSquare[us], us)] == move)
        score += REMEMBERED_REPLY;
    PushMove(move, score);
}

static void EmitBlock(Move move) {
    if (SafeExchange(move))
        EmitQuiet(move);
    else
        PushMove(move, LOSING_BLOCK - OrderingValue[MovingPiece(move)]);
}

// Squares behind the king as its sliding checkers see them: still attacked once it has moved,
// though it shields them now.
static Bitboard Shadow(int king, Bitboard checkers) {
    Bitboard shadow = 0;
    for (Bitboard b = checkers & (OrthoSliders | DiagSliders); b;)
        shadow |= Ray[DirectionTo[PopLowest(b)][king]][king];
    return shadow;
}

static void GenerateKingEvasions(Colour us, Bitboard checkers) {
    const int king = KingSquare[us];
    // A board set up without a king has nothing to move here.
    if (!PieceBB[KING][us])
        return;
    Bitboard targets = KingAttacks[king] & ~ColourBB[us] & ~Shadow(king, checkers);
    while (targets) {
        const int to = PopLowest(targets);
        if (SquareAttacked(ChangeSide(us), to))
            continue;
        const Move move = MoveWord(king, to, KING, Board[to]);
        if (Board[to] != EMPTY)
            EmitCapture(move);
        else
            EmitQuiet(move);
    }
}

// Men of `us` that alone stand between their king and an enemy slider: none of them can answer
// another check.
static Bitboard PinnedMen(Colour us) {
    const int king = KingSquare[us];
    const Bitboard enemy = ColourBB[ChangeSide(us)];
    Bitboard snipers = ((RookRays[king] & OrthoSliders) | (BishopRays[king] & DiagSliders)) & enemy;
    Bitboard pinned = 0;
    while (snipers) {
        const Bitboard between = Between[king][PopLowest(snipers)] & Occupied();
        if (CountBits(between) == 1)
            pinned |= between & ColourBB[us];
    }
    return pinned;
}

static void GeneratePieceEvasions(Colour us, Piece type, Bitboard able, int checker,
                                  Bitboard blocks) {
    for (Bitboard men = PieceBB[type][us] & able; men;) {
        const int from = PopLowest(men);
        for (Bitboard b = PieceAttacks(from, us, type) & (blocks | SquareBit(checker)); b;) {
            const int to = PopLowest(b);
            if (to == checker)
                EmitCapture(MoveWord(from, to, type, Board[to]));
            else
                EmitBlock(MoveWord(from, to, type));
        }
    }
}

template <Colour Us> static void GeneratePushEvasions(Bitboard able, Bitboard blocks) {
    for (Bitboard pawns = PieceBB[PAWN][Us] & able; pawns;) {
        const int from = PopLowest(pawns);
        const int to = from + AheadStep<Us>;
        if (to < 0 || to > 63 || Board[to] != EMPTY)
            continue;
        if (RelativeRank(Us, from) == PROMOTING_RANK) {
            for (const Piece promotion : {QUEEN, ROOK, KNIGHT, BISHOP})
                if (blocks & SquareBit(to))
                    EmitCapture(MoveWord(from, to, PAWN, EMPTY, promotion));
            continue;
        }
        if (blocks & SquareBit(to))
            EmitBlock(MoveWord(from, to, PAWN));
        if (RelativeRank(Us, from) == DOUBLE_STEP_RANK &&
            (blocks & ~Occupied() & SquareBit(to + AheadStep<Us>)))
            EmitBlock(MoveWord(from, to + AheadStep<Us>, PAWN));
    }
}

template <Colour Us> static void GeneratePawnCaptureEvasions(Bitboard able, int checker) {
    constexpr Colour Them = ChangeSide(Us);
    for (Bitboard pawns = PawnAttacks[Them][checker] & PieceBB[PAWN][Us] & able; pawns;) {
        const int from = PopLowest(pawns);
        const Move move = MoveWord(from, checker, PAWN, Board[checker]);
        if (RelativeRank(Us, from) != PROMOTING_RANK) {
            EmitCapture(move);
            continue;
        }
        for (const Piece promotion : {QUEEN, KNIGHT, ROOK, BISHOP})
            EmitCapture(move | Move(promotion) << PROMOTION_SHIFT);
    }
    if (To(LastMove()) != checker || Board[checker] != PAWN)
        return;
    for (Bitboard pawns = EnPassantTakers(Us) & able; pawns;) {
        const Move move = MoveWord(PopLowest(pawns), checker + AheadStep<Us>, PAWN);
        if (IsLegalMove(move))
            EmitCapture(move);
    }
}

template <Colour Us> static void GenerateEvasionsFor() {
    const int king = KingSquare[Us];
    const Bitboard checkers = AttackersOf(ChangeSide(Us), king);
    GenerateKingEvasions(Us, checkers);
    if (CountBits(checkers) != 1)
        return;
    const int checker = LowestSquare(checkers);
    const Bitboard blocks = Between[king][checker];
    const Bitboard able = ~PinnedMen(Us);
    for (const Piece type : {KNIGHT, BISHOP, ROOK, QUEEN})
        GeneratePieceEvasions(Us, type, able, checker, blocks);
    GeneratePushEvasions<Us>(able, blocks);
    GeneratePawnCaptureEvasions<Us>(able, checker);
}

void GenerateEvasions() {
    assert(InCheck(SideToMove));
    if (SideToMove == WHITE)
        GenerateEvasionsFor<WHITE>();
    else
        GenerateEvasionsFor<BLACK>();
}
