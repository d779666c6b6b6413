#include "front/game/adjudication.h"

#include "board/attackers.h"
#include "board/draw_rules.h"
#include "board/position.h"
#include "book/book_learning.h"
#include "front/game/dialect.h"

namespace {

// A bare king against a side with more pieces than this can still be mated, in centipawns.
constexpr int LONE_PIECE = 300;

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
    constexpr const char* line = "1/2-1/2 {Draw by insufficient material}";
    if (PieceMaterial(BLACK) == 0) {
        if (PieceMaterial(WHITE) > LONE_PIECE)
            return;
        if (!HasPawns(WHITE))
            NoteDraw(line);
    }
    if (PieceMaterial(WHITE) == 0 && PieceMaterial(BLACK) <= LONE_PIECE && !HasPawns(BLACK))
        NoteDraw(line);
}

void FindDraws() {
    FoundDrawCount = 0;
    DrawToLearn = false;
    FindInsufficientMaterial();
    if (HasRepeatedTwice())
        NoteDraw("1/2-1/2 {Draw by repetition}");
    if (FiftyMovesPassed())
        NoteDraw("1/2-1/2 {Draw by the 50-moves rule}");
}

void AnnounceDraws() {
    for (int i = 0; i < FoundDrawCount; i++)
        Speaking->printResult(FoundDraws[i]);
    DrawToLearn |= FoundDrawCount > 0;
    FoundDrawCount = 0;
}

void LearnAnnouncedDraw() {
    if (DrawToLearn)
        LearnBook(BOOK_DRAWN);
    DrawToLearn = false;
    FoundDrawCount = 0;
}

// What the book has brought the engine into is told by its scores long before a mate. Meant so:
// counting mates as losses would change what existing books have learned to mean.
void AnnounceGameOver() {
    LearnBook(BOOK_DRAWN);
    if (!InCheck(SideToMove))
        Speaking->printResult("1/2-1/2 {Stalemate}");
    else if (SideToMove == BLACK)
        Speaking->printResult("1-0 {White mates}");
    else
        Speaking->printResult("0-1 {Black mates}");
}
