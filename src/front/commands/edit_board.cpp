#include "front/commands/edit_board.h"

#include <cctype>
#include <cstdio>

#include "board/moves/order_tables.h"
#include "board/position.h"
#include "front/input/input_lines.h"
#include "search/state.h"

namespace {

// Entries of the tables grow staler by leaving the editor than by a search: the board has changed
// as a whole.
constexpr int EDIT_AGE = 3;

} // namespace

static void PrintError() {
    std::puts("Error");
    std::fflush(stdout);
}

// The next character that is no blank or line end, in lower case; "." at the end of input.
static int NextEditCharacter() {
    for (;;) {
        const int c = NextCharacter();
        if (c < 0)
            return '.';
        if (c != ' ' && c != '\r' && c != '\n')
            return std::tolower(c);
    }
}

static Piece PieceToPlace(int letter) {
    switch (letter) {
    case 'p':
        return PAWN;
    case 'n':
        return KNIGHT;
    case 'b':
        return BISHOP;
    case 'r':
        return ROOK;
    case 'q':
        return QUEEN;
    case 'k':
        return KING;
    default:
        return EMPTY;
    }
}

// Reads the square that follows a piece letter and puts the man there; EMPTY removes. False when
// the input ended in the middle.
static bool EditSquare(Colour colour, Piece piece) {
    const int file = NextEditCharacter();
    if (file == '.')
        return false;
    const int rank = NextEditCharacter();
    if (rank == '.')
        return false;
    if (file < 'a' || file > 'h' || rank < '1' || rank > '8') {
        PrintError();
        return true;
    }
    const int sq = (rank - '1') * 8 + file - 'a';
    RemovePiece(sq);
    if (piece != EMPTY)
        PlacePiece(sq, colour, piece);
    return true;
}

static void EditMen() {
    Colour colour = WHITE;
    for (int c = NextEditCharacter(); c != '.'; c = NextEditCharacter()) {
        if (c == '#') {
            ClearBoard();
        } else if (c == 'c') {
            colour = ChangeSide(colour);
        } else if (c == 'x' || PieceToPlace(c) != EMPTY) {
            if (!EditSquare(colour, PieceToPlace(c)))
                return;
        } else {
            PrintError();
        }
    }
}

void EditBoard(const CommandLine&) {
    EditMen();
    CastleRights = ALL_CASTLE_RIGHTS;
    DropImpossibleCastleRights();
    Ply = SetupPly = 0;
    ClearHistory();
    ClearKillers();
    HashAge = int16_t(uint16_t(HashAge) + EDIT_AGE);
}
