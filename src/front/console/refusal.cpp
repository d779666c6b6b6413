#include "front/console/refusal.h"

#include "board/attackers.h"
#include "board/moves/pseudo_legal.h"
#include "board/moves/san.h"
#include "board/notation.h"
#include "board/position.h"
#include "tools/pgn_moves.h"

namespace {

constexpr const char* Names[] = {"", "king", "knight", "pawn", "", "rook", "bishop", "queen"};

} // namespace

static std::string InDanger() {
    return InCheck(SideToMove) ? "your king is in check" : "your king would be in check";
}

static bool IsLastRank(int sq) {
    return RankOf(sq) == 0 || RankOf(sq) == 7;
}

static std::string WhyNotMoved(int from, int to, bool promotes) {
    const std::string text = ShortMoveText(MoveWord(from, to, KING));
    const std::string origin = text.substr(0, 2);
    const std::string target = text.substr(2);
    if (!(ColourBB[SideToMove] & SquareBit(from)))
        return Board[from] == EMPTY ? "there is no man on " + origin
                                    : "the man on " + origin + " is not yours";
    if (ColourBB[SideToMove] & SquareBit(to))
        return "your own " + std::string(Names[Board[to]]) + " stands on " + target;
    if (Board[from] == PAWN && IsLastRank(to) && !promotes)
        return "say what the pawn becomes, as in " + text + "q";
    const Move move = MoveFromText(text + (promotes ? "q" : ""));
    if (Board[from] == KING && (to - from == 2 || from - to == 2) && RankOf(to) == RankOf(from))
        return "you cannot castle there now";
    if (IsPseudoLegal(move))
        return InDanger();
    return "the " + std::string(Names[Board[from]]) + " on " + origin + " does not reach " + target;
}

static Piece PieceOfSan(char letter) {
    switch (letter) {
    case 'K':
        return KING;
    case 'Q':
        return QUEEN;
    case 'R':
        return ROOK;
    case 'B':
        return BISHOP;
    case 'N':
        return KNIGHT;
    default:
        return PAWN;
    }
}

// The square that the text goes to: its last two characters that are one.
static int TargetOfSan(const std::string& text) {
    for (size_t i = text.size(); i >= 2; i--) {
        const char file = text[i - 2];
        const char rank = text[i - 1];
        if (file >= 'a' && file <= 'h' && rank >= '1' && rank <= '8')
            return (rank - '1') * 8 + file - 'a';
    }
    return -1;
}

static std::string WhyNotSan(const std::string& text) {
    const int to = TargetOfSan(text);
    if (to < 0)
        return "you cannot castle there now";
    if (PgnParseSan(text).matches > 1)
        return "several moves are written so; say the square it leaves, or what the pawn becomes";
    const Piece piece = PieceOfSan(text[0]);
    for (int from = 0; from < 64; from++) {
        if (Board[from] == piece && (ColourBB[SideToMove] & SquareBit(from)) &&
            IsPseudoLegal(MoveFromText(ShortMoveText(MoveWord(from, to, piece)))))
            return InDanger();
    }
    if (piece == KING)
        return "your king cannot go there";
    return "no " + std::string(Names[piece]) + " of yours can go there";
}

std::string WhyNotPlayed(const std::string& text) {
    if (!HasMoveShape(text))
        return WhyNotSan(text);
    const auto square = [](char file, char rank) { return (rank - '1') * 8 + (file | 0x20) - 'a'; };
    if (text[0] < 'a' || text[2] < 'a')
        return "squares are written in small letters";
    return WhyNotMoved(square(text[0], text[1]), square(text[2], text[3]),
                       text.size() > 4 && text[4] > ' ');
}
