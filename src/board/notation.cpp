#include "board/notation.h"

#include "board/position.h"

namespace {

// Letters by promotion code; code 0 has none.
constexpr char PromotionLetters[] = "\0knp?rbq";

} // namespace

static std::string SquareText(int sq) {
    return {char('a' + FileOf(sq)), char('1' + RankOf(sq))};
}

std::string ShortMoveText(Move move) {
    return move == NO_MOVE ? "0000" : SquareText(From(move)) + SquareText(To(move));
}

std::string MoveText(Move move) {
    std::string text = ShortMoveText(move);
    if (Promotion(move) != EMPTY)
        text += PromotionLetters[Promotion(move)];
    return text;
}

static bool IsFile(char c) {
    return (c >= 'a' && c <= 'h') || (c >= 'A' && c <= 'H');
}

static bool IsRank(char c) {
    return c >= '1' && c <= '8';
}

bool HasMoveShape(std::string_view text) {
    return text.size() >= 4 && IsFile(text[0]) && IsRank(text[1]) && IsFile(text[2]) &&
           IsRank(text[3]);
}

static Piece PromotionOfLetter(char letter) {
    switch (letter) {
    case 'q':
        return QUEEN;
    case 'r':
        return ROOK;
    case 'b':
        return BISHOP;
    case 'n':
        return KNIGHT;
    default:
        return EMPTY;
    }
}

Move MoveFromText(std::string_view text) {
    const int from = text[0] - 'a' + 8 * (text[1] - '1');
    const int to = text[2] - 'a' + 8 * (text[3] - '1');
    if (text[0] < 'a' || text[2] < 'a' || from < 0 || from > 63 || to < 0 || to > 63)
        return NO_MOVE;
    const char letter = text.size() > 4 ? text[4] : '\0';
    return MoveWord(from, to, Board[from], Board[to], PromotionOfLetter(letter));
}
