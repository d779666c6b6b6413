#include "board/moves/san.h"

#include <cstdlib>

#include "board/attackers.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/notation.h"
#include "board/position.h"

static std::string SquareName(int sq) {
    return {char('a' + FileOf(sq)), char('1' + RankOf(sq))};
}

// What must be told of the square that a piece leaves: nothing, its file, its rank, or both.
static std::string Origin(Move move) {
    bool others = false;
    bool sameFile = false;
    bool sameRank = false;
    const int32_t top = MoveStackTop;
    for (int i = GenerateLegalMoves(); i > 0; i--) {
        const Move other = MoveStack[top + i - 1].move;
        if (MovingPiece(other) != MovingPiece(move) || To(other) != To(move) ||
            From(other) == From(move))
            continue;
        others = true;
        sameFile |= FileOf(From(other)) == FileOf(From(move));
        sameRank |= RankOf(From(other)) == RankOf(From(move));
    }
    MoveStackTop = top;
    const std::string square = SquareName(From(move));
    if (!others)
        return "";
    if (!sameFile)
        return square.substr(0, 1);
    return sameRank ? square : square.substr(1);
}

// Without what it does to the other king.
static std::string PlainText(Move move) {
    const Piece piece = MovingPiece(move);
    if (piece == KING && std::abs(To(move) - From(move)) == 2)
        return To(move) > From(move) ? "O-O" : "O-O-O";
    // En passant takes a pawn from another square.
    const bool takes =
        CapturedPiece(move) != EMPTY || (piece == PAWN && FileOf(From(move)) != FileOf(To(move)));
    std::string text;
    if (piece != PAWN)
        text = PieceLetters[piece] + Origin(move);
    else if (takes)
        text = SquareName(From(move)).substr(0, 1);
    text += (takes ? "x" : "") + SquareName(To(move));
    if (Promotion(move) != EMPTY)
        text += std::string("=") + PieceLetters[Promotion(move)];
    return text;
}

std::string SanText(Move move) {
    std::string text = PlainText(move);
    MakeMove(move, true);
    if (InCheck(SideToMove))
        text += HasLegalMove() ? '+' : '#';
    UnmakeMove();
    return text;
}

bool HasSanShape(std::string_view text) {
    constexpr std::string_view marks = "+#!?";
    while (!text.empty() &&
           (marks.find(text.back()) != std::string_view::npos || text.back() == ' '))
        text.remove_suffix(1);
    for (const std::string_view castling : {"O-O", "o-o", "0-0", "O-O-O", "o-o-o", "0-0-0"}) {
        if (text == castling)
            return true;
    }
    constexpr std::string_view pieces = "KQRBN";
    if (!text.empty() && pieces.find(text.front()) != std::string_view::npos)
        text.remove_prefix(1);
    if (text.size() >= 2 && pieces.find(text.back()) != std::string_view::npos)
        text.remove_suffix(text[text.size() - 2] == '=' ? 2 : 1);
    const auto isFile = [](char c) { return c >= 'a' && c <= 'h'; };
    const auto isRank = [](char c) { return c >= '1' && c <= '8'; };
    if (text.size() < 2 || !isRank(text.back()) || !isFile(text[text.size() - 2]))
        return false;
    for (const char c : text.substr(0, text.size() - 2)) {
        if (!isFile(c) && !isRank(c) && c != 'x' && c != '-')
            return false;
    }
    return true;
}
