#include "coordinates.h"

#include "board/moves/legal_moves.h"
#include "board/position.h"

Move LegalMoveBetween(int from, int to) {
    if (from < 0 || from > 63 || to < 0 || to > 63 || Board[from] == EMPTY)
        return NO_MOVE;
    const Piece piece = Board[from];
    const bool promotes = piece == PAWN && RelativeRank(SideToMove, to) == 7;
    const Move move = MoveWord(from, to, piece, Board[to], promotes ? QUEEN : EMPTY);
    return IsLegal(move) ? move : NO_MOVE;
}

static int SquareFromText(std::string_view text) {
    const int file = text[0] - 'a';
    const int rank = text[1] - '1';
    return file < 0 || file > 7 || rank < 0 || rank > 7 ? -1 : rank * 8 + file;
}

Move LegalMoveFromCoordinates(std::string_view text) {
    if (text.size() < 4 || text.size() > 5)
        return NO_MOVE;
    const Move move =
        LegalMoveBetween(SquareFromText(text.substr(0, 2)), SquareFromText(text.substr(2, 2)));
    const bool hasLetter = text.size() == 5;
    if (move == NO_MOVE || hasLetter != (Promotion(move) != EMPTY))
        return NO_MOVE;
    return hasLetter && text[4] != 'q' && text[4] != 'Q' ? NO_MOVE : move;
}

static char FileLetter(int sq) {
    return char('a' + (sq & 7));
}

static char RankDigit(int sq) {
    return char('1' + (sq >> 3 & 7));
}

std::string SquaresText(int from, int to) {
    return {FileLetter(from), RankDigit(from), FileLetter(to), RankDigit(to)};
}

bool FitsBook(Move move) {
    return Promotion(move) == EMPTY || Promotion(move) == QUEEN;
}
