#include "tools/pgn_moves.h"

#include <algorithm>
#include <array>

#include "board/attackers.h"
#include "board/moves/legal_moves.h"
#include "board/moves/pseudo_legal.h"
#include "board/position.h"

namespace {

constexpr size_t LONGEST_MOVE = 16;
constexpr int NOT_GIVEN = -1;

// A square of which file or rank may be missing.
struct SquareParts {
    int file = NOT_GIVEN;
    int rank = NOT_GIVEN;

    bool Complete() const {
        return file != NOT_GIVEN && rank != NOT_GIVEN;
    }
    int Square() const {
        return rank * 8 + file;
    }
    Bitboard Mask() const {
        return (file == NOT_GIVEN ? ~Bitboard{0} : FileBB(file)) &
               (rank == NOT_GIVEN ? ~Bitboard{0} : RankBB(rank));
    }
};

// What the text tells of a move.
struct MoveParts {
    Piece piece = PAWN;
    SquareParts from;
    SquareParts to; // a pawn's capture may lack the rank
    Piece promotion = EMPTY;
    bool capture = false;
};

// What fits so far.
struct Candidates {
    SanMove san;
    bool inCheck;

    void Add(Move move, int matches) {
        san.move = move;
        san.matches += matches;
    }
};

// The text without what may stand anywhere in it.
struct BareText {
    std::array<char, LONGEST_MOVE> characters = {};
    size_t length = 0;
    bool capture = false;

    std::string_view View() const {
        return {characters.data(), length};
    }
};

} // namespace

// False when the text is longer than any move.
static bool Strip(std::string_view text, BareText& bare) {
    for (const char c : text) {
        if (c == ':' || c == 'x')
            bare.capture = true;
        if (c == ':' || c == 'x' || c == '=' || c == '-')
            continue;
        if (bare.length == LONGEST_MOVE)
            return false;
        bare.characters[bare.length++] = c;
    }
    return true;
}

static Piece PieceOfLetter(char letter) {
    switch (letter) {
    case 'K':
    case 'k':
        return KING;
    case 'Q':
    case 'q':
        return QUEEN;
    case 'R':
    case 'r':
        return ROOK;
    case 'N':
    case 'n':
        return KNIGHT;
    case 'B':
        return BISHOP;
    case 'P':
        return PAWN;
    default:
        return EMPTY;
    }
}

static SquareParts TakeSquare(std::string_view& text) {
    SquareParts square;
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'h') {
        square.file = text[0] - 'a';
        text.remove_prefix(1);
    }
    if (!text.empty() && text[0] >= '1' && text[0] <= '8') {
        square.rank = text[0] - '1';
        text.remove_prefix(1);
    }
    return square;
}

// Takes one or two squares. A file alone behind a whole square is no square but a small "b" for a
// bishop, or the "ep" of a capture.
static bool TakeSquares(std::string_view& text, MoveParts& parts) {
    const SquareParts first = TakeSquare(text);
    const std::string_view behindFirst = text;
    const SquareParts second = TakeSquare(text);
    if (second.Complete()) {
        parts.from = first;
        parts.to = second;
        return true;
    }
    if (first.Complete()) {
        text = behindFirst;
        parts.to = first;
        return true;
    }
    parts.from = first;
    parts.to = second;
    parts.capture = true;
    return parts.piece == PAWN && first.file != NOT_GIVEN && second.file != NOT_GIVEN &&
           first.file != second.file;
}

// False when the text has not the form of a move.
static bool TakeMove(std::string_view text, MoveParts& parts) {
    if (text.empty())
        return false;
    const Piece named = PieceOfLetter(text[0]);
    if (named != EMPTY) {
        parts.piece = named;
        text.remove_prefix(1);
    }
    if (!TakeSquares(text, parts))
        return false;
    // Both squares tell which piece it is.
    if (named == EMPTY && parts.from.Complete() &&
        (ColourBB[SideToMove] & SquareBit(parts.from.Square())))
        parts.piece = Board[parts.from.Square()];
    // A reader of words stops at the first point of "e.p.".
    if (text == "e" || text.starts_with("ep"))
        text.remove_prefix(std::min<size_t>(text.size(), 2));
    if (text.empty())
        return true;
    parts.promotion = text[0] == 'b' ? BISHOP : PieceOfLetter(text[0]);
    return text.size() == 1 && parts.promotion != EMPTY;
}

static bool IsLegalHere(Move move, bool inCheck) {
    return inCheck ? AnswersCheck(move) : IsLegalMove(move);
}

static void AddCastling(bool toShort, Candidates& found) {
    const Move white = toShort ? WHITE_CASTLES_SHORT : WHITE_CASTLES_LONG;
    const Move black = toShort ? BLACK_CASTLES_SHORT : BLACK_CASTLES_LONG;
    const Move move = SideToMove == WHITE ? white : black;
    if (!found.inCheck && IsPseudoLegal(move))
        found.Add(move, 1);
}

static void AddPieceMoves(const MoveParts& parts, Candidates& found) {
    const Colour us = SideToMove;
    const int to = parts.to.Square();
    if (parts.promotion != EMPTY || (ColourBB[us] & SquareBit(to)) || Board[to] == KING ||
        (parts.capture && Board[to] == EMPTY))
        return;
    Bitboard movers = PieceAttacks(to, us, parts.piece) & PieceBB[parts.piece][us];
    for (movers &= parts.from.Mask(); movers;) {
        const Move move = MoveWord(PopLowest(movers), to, parts.piece, Board[to]);
        if (IsLegalHere(move, found.inCheck))
            found.Add(move, 1);
    }
    // A king that is said to go two squares castles.
    const int home = KingHome(us);
    if (parts.piece == KING && (to == home + 2 || to == home - 2) && !parts.capture &&
        (parts.from.Mask() & PieceBB[KING][us] & SquareBit(home)))
        AddCastling(to > home, found);
}

// A promotion that does not say to what is ambiguous.
static void AddPawnMove(int from, int to, const MoveParts& parts, Candidates& found) {
    const bool lastRank = RankOf(to) == 0 || RankOf(to) == 7;
    const Piece becomes = lastRank && parts.promotion == EMPTY ? QUEEN : parts.promotion;
    const Move move = MoveWord(from, to, PAWN, Board[to], becomes);
    const bool captures = FileOf(from) != FileOf(to);
    if (Board[to] != KING && (captures || !parts.capture) && IsPseudoLegal(move) &&
        IsLegalHere(move, found.inCheck))
        found.Add(move, becomes == parts.promotion ? 1 : 4);
}

template <Colour Us> static void AddPawnMovesTo(int to, const MoveParts& parts, Candidates& found) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard oneBehind = Ahead<Them>(SquareBit(to));
    const Bitboard sources =
        PawnAttacks[Them][to] | oneBehind | (Ahead<Them>(oneBehind) & RelativeRankBB(Us, 1));
    for (Bitboard movers = PieceBB[PAWN][Us] & sources & parts.from.Mask(); movers;)
        AddPawnMove(PopLowest(movers), to, parts, found);
}

static void AddPawnMoves(const MoveParts& parts, Candidates& found) {
    for (Bitboard targets = parts.to.Mask() & ~ColourBB[SideToMove]; targets;) {
        const int to = PopLowest(targets);
        if (SideToMove == WHITE)
            AddPawnMovesTo<WHITE>(to, parts, found);
        else
            AddPawnMovesTo<BLACK>(to, parts, found);
    }
}

static bool IsCastlingLetter(char c) {
    return c == 'O' || c == 'o' || c == '0';
}

// The letters of castling with their hyphens already gone.
static void AddNamedCastling(std::string_view text, Candidates& found) {
    if ((text.size() == 2 || text.size() == 3) && std::ranges::all_of(text, IsCastlingLetter))
        AddCastling(text.size() == 2, found);
}

SanMove PgnParseSan(std::string_view text) {
    Candidates found = {{NO_MOVE, 0}, InCheck(SideToMove)};
    BareText bare;
    MoveParts parts;
    if (!Strip(text, bare) || bare.length == 0)
        return found.san;
    parts.capture = bare.capture;
    if (IsCastlingLetter(bare.View()[0]))
        AddNamedCastling(bare.View(), found);
    else if (!TakeMove(bare.View(), parts))
        return found.san;
    else if (parts.piece == PAWN)
        AddPawnMoves(parts, found);
    else
        AddPieceMoves(parts, found);
    return found.san;
}
