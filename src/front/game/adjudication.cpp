#include "front/game/adjudication.h"

#include "board/attackers.h"
#include "board/draw_rules.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "book/book_learning.h"
#include "front/game/dialect.h"
#include "front/game/manners.h"
#include "search/interrupts.h"
#include "search/limits.h"

namespace {

// A bare king against a side with more pieces than this can still be mated, in centipawns.
constexpr int LONE_PIECE = 300;

constexpr const char* INSUFFICIENT_MATERIAL = "1/2-1/2 {Draw by insufficient material}";

// What the board was found to show: the lines to print, in their order.
constexpr int MAX_DRAWS = 4;
constinit const char* FoundDraws[MAX_DRAWS] = {};
constinit int FoundDrawCount = 0;
constinit bool DrawToLearn = false;

} // namespace

static void NoteDraw(const char* line) {
    FoundDraws[FoundDrawCount++] = line;
}

static int PieceMaterial(Colour side) {
    return Material[side] - PieceValue[PAWN] * PieceCount[PAWN][side];
}

static bool HasPawns(Colour side) {
    return PieceCount[PAWN][side] > 0;
}

// Two tests that do not know of each other. With bare kings both hold and the line is printed
// twice; a lone pawn against a bare king passes the one that asks for the other side's pawns. Meant
// so: what a GUI reads from us stays as it is, byte for byte.
static void FindInsufficientMaterial() {
    if (PieceMaterial(BLACK) == 0) {
        if (PieceMaterial(WHITE) > LONE_PIECE)
            return;
        if (!HasPawns(WHITE))
            NoteDraw(INSUFFICIENT_MATERIAL);
    }
    if (PieceMaterial(WHITE) == 0 && PieceMaterial(BLACK) <= LONE_PIECE && !HasPawns(BLACK))
        NoteDraw(INSUFFICIENT_MATERIAL);
}

static bool IsMate() {
    return InCheck(SideToMove) && !HasLegalMove();
}

void FindDraws() {
    FoundDrawCount = 0;
    DrawToLearn = false;
    if (!Manner->exactMaterialDraws)
        FindInsufficientMaterial();
    else if (NoMateIsPossible())
        NoteDraw(INSUFFICIENT_MATERIAL);
    if (HasRepeatedTwice())
        NoteDraw("1/2-1/2 {Draw by repetition}");
    // A mate comes before the count.
    if (FiftyMovesPassed() && !(Manner->claimsOwnResults && IsMate()))
        NoteDraw("1/2-1/2 {Draw by the 50-moves rule}");
}

// A board that is only looked at is no game.
static bool GameTeaches() {
    return !Manner->onlyPlayedMovesTeach || !(Limits.GoPonder || BoardIsOnlyLookedAt());
}

void AnnounceDraws() {
    for (int i = 0; i < FoundDrawCount; i++)
        Speaking->printResult(FoundDraws[i]);
    DrawToLearn |= FoundDrawCount > 0;
    FoundDrawCount = 0;
}

void LearnAnnouncedDraw() {
    if (DrawToLearn && GameTeaches())
        LearnBook(BOOK_DRAWN);
    DrawToLearn = false;
    FoundDrawCount = 0;
}

static void PrintGameOver() {
    if (!InCheck(SideToMove))
        Speaking->printResult("1/2-1/2 {Stalemate}");
    else if (SideToMove == BLACK)
        Speaking->printResult("1-0 {White mates}");
    else
        Speaking->printResult("0-1 {Black mates}");
}

// What the book has brought the engine into is told by its scores long before a mate. Meant so:
// counting mates as losses would change what existing books have learned to mean.
void AnnounceGameOver() {
    if (GameTeaches())
        LearnBook(BOOK_DRAWN);
    PrintGameOver();
}

bool AnnounceOwnResult() {
    if (!HasLegalMove()) {
        PrintGameOver();
    } else {
        FindDraws();
        if (FoundDrawCount == 0)
            return false;
        AnnounceDraws();
    }
    DrawToLearn = false;
    if (!GameTeaches() || Interrupts.PredictionMissed)
        return true;
    // The book learns for the side to move: that of the engine, which has just moved.
    const Move move = LastMove();
    UnmakeMove();
    LearnBook(BOOK_DRAWN);
    MakeMove(move, true);
    return true;
}
