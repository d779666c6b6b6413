#include "board/fen.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "board/keys.h"
#include "board/notation.h"
#include "board/piece_square.h"
#include "board/position.h"

namespace {

constexpr int NO_SQUARE = -1;
// What a half-move clock can show; more is cut.
constexpr int MOST_HALF_MOVES = 1000;

} // namespace

static Piece PieceOfLetter(char letter) {
    const char upper = char(std::toupper(static_cast<unsigned char>(letter)));
    const char* const found = std::strchr(PieceLetters + 1, upper);
    return upper != '\0' && upper != '?' && found ? Piece(found - PieceLetters) : EMPTY;
}

static const char* SkipBlanks(const char* text) {
    while (*text == ' ')
        text++;
    return text;
}

static const char* SkipField(const char* text) {
    while (*text != '\0' && *text != ' ')
        text++;
    return text;
}

// Places the men of the first field. What stands beyond the h-file is dropped; a slash too many
// ends the reading.
static const char* ReadPlacement(const char* text) {
    int rank = 7;
    int file = 0;
    for (; *text != '\0' && *text != ' '; text++) {
        if (*text >= '1' && *text <= '8') {
            file += *text - '0';
        } else if (*text == '/') {
            file = 0;
            if (--rank < 0)
                return SkipField(text);
        } else if (const Piece piece = PieceOfLetter(*text); piece != EMPTY) {
            const bool black = std::islower(static_cast<unsigned char>(*text)) != 0;
            if (file < 8)
                PlacePiece(rank * 8 + file, black ? BLACK : WHITE, piece);
            file++;
        }
        // However long the field is, the file stays a small number.
        if (file > 8)
            file = 8;
    }
    return text;
}

static const char* ReadCastleRights(const char* text) {
    CastleRights = 0;
    for (; *text != '\0' && *text != ' '; text++) {
        switch (*text) {
        case 'K':
            CastleRights |= WHITE_SHORT;
            break;
        case 'Q':
            CastleRights |= WHITE_LONG;
            break;
        case 'k':
            CastleRights |= BLACK_SHORT;
            break;
        case 'q':
            CastleRights |= BLACK_LONG;
            break;
        default:
            break;
        }
    }
    return text;
}

// The square of the pawn that the en-passant field means; NO_SQUARE when it means none.
static int DoubleStepSquare(const char* text, FenFields fields) {
    const char rank = SideToMove == WHITE ? '5' : '4';
    const char rankBehind = SideToMove == WHITE ? '6' : '3';
    if (text[0] < 'a' || text[0] > 'h' ||
        (text[1] != rank && (fields == FenFields::OWN || text[1] != rankBehind)))
        return NO_SQUARE;
    return (rank - '1') * 8 + text[0] - 'a';
}

// Records the double step of the pawn that the field names as the last move. The two squares
// behind it must be empty: otherwise taking it en passant would run into another man.
static void ReadEnPassant(const char* text, FenFields fields) {
    const int to = DoubleStepSquare(text, fields);
    if (to == NO_SQUARE)
        return;
    const Colour stepper = ChangeSide(SideToMove);
    const int behind = stepper == WHITE ? -8 : 8;
    const int from = to + 2 * behind;
    if (!(PieceBB[PAWN][stepper] & SquareBit(to)))
        return;
    if (Board[to + behind] != EMPTY || Board[from] != EMPTY)
        return;
    const auto& keys = PieceKeys[stepper][PAWN];
    const auto& pstA = PstA[PAWN][stepper];
    const auto& pstB = PstB[PAWN][stepper];
    const int view = stepper == BLACK ? 1 : -1;
    UndoStack[0] = {PosKey ^ keys[from] ^ keys[to],
                    0,
                    MoveWord(from, to, PAWN),
                    CastleRights,
                    MaterialIndex,
                    int16_t(PstSumA + view * (pstA[from] - pstA[to])),
                    int16_t(PstSumB + view * (pstB[from] - pstB[to]))};
    Ply = SetupPly = 1;
}

// After a double step the count begins anew, whatever the field says.
static void ReadHalfMoves(const char* text) {
    int halfMoves = 0;
    for (; *text >= '0' && *text <= '9'; text++)
        halfMoves = std::min(halfMoves * 10 + *text - '0', MOST_HALF_MOVES);
    if (Ply == 0)
        FiftyCount = halfMoves;
}

void LoadFen(const char* text, FenFields fields) {
    Ply = SetupPly = 0;
    ClearBoard();
    text = SkipBlanks(ReadPlacement(SkipBlanks(text)));
    SideToMove = *text == 'w' ? WHITE : BLACK;
    if (*text != '\0')
        text++;
    text = SkipBlanks(text);
    text = SkipBlanks(ReadCastleRights(text));
    DropImpossibleCastleRights();
    ReadEnPassant(text, fields);
    if (fields == FenFields::STANDARD)
        ReadHalfMoves(SkipBlanks(SkipField(text)));
}

static std::string PlacementText() {
    std::string text;
    for (int rank = 7; rank >= 0; rank--) {
        int empty = 0;
        for (int sq = rank * 8; sq < rank * 8 + 8; sq++) {
            if (Board[sq] == EMPTY) {
                empty++;
                continue;
            }
            if (empty > 0)
                text += char('0' + empty);
            empty = 0;
            const char letter = PieceLetters[Board[sq]];
            text += ColourOn(sq) == WHITE ? letter
                                          : char(std::tolower(static_cast<unsigned char>(letter)));
        }
        if (empty > 0)
            text += char('0' + empty);
        if (rank > 0)
            text += '/';
    }
    return text;
}

std::string WriteFen(FenFields fields) {
    std::string text = PlacementText();
    text += SideToMove == WHITE ? " w " : " b ";
    if (CastleRights == 0)
        text += '-';
    for (int right = 0; right < 4; right++) {
        if (CastleRights & 1 << right)
            text += "KQkq"[right];
    }
    text += ' ';
    if (const Move last = LastMove(); IsDoubleStep(ChangeSide(SideToMove), last)) {
        text += char('a' + FileOf(To(last)));
        const int to = RankOf(To(last));
        text += char('1' + (fields == FenFields::OWN ? to : (to + RankOf(From(last))) / 2));
    } else {
        text += '-';
    }
    // Counts Black's moves since the set-up, which may have had either side to move.
    const int fullMove = (Ply - SetupPly + (SideToMove == WHITE ? 1 : 0)) / 2 + 1;
    text += ' ' + std::to_string(FiftyCount) + ' ' + std::to_string(fullMove);
    return text;
}
