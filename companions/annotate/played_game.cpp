#include "played_game.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

#include "board/attackers.h"
#include "board/fen.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "companions/shared/text_lines.h"
#include "tools/pgn_moves.h"

namespace {

// No game is so long; and so much can be taken back.
constexpr size_t MOST_PLIES = 12000;

// Ordinary chess by the names that programs write into the tag for variants.
constexpr std::array<std::string_view, 6> OrdinaryChess = {"",      "standard",      "normal",
                                                           "chess", "from position", "?"};

constexpr int MOST_MEN = 16; // of a colour

} // namespace

static std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        c = char(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

// Whether the first field has eight ranks of eight squares with a king of each colour, no pawn on
// a last rank, and no more men than a game begins with.
static bool IsPlacement(std::string_view field) {
    const std::vector<std::string_view> ranks = Split(field, '/');
    std::array<int, 2> kings = {};
    std::array<int, 2> men = {};
    for (size_t i = 0; i < ranks.size(); i++) {
        int squares = 0;
        for (const char c : ranks[i]) {
            if (c >= '1' && c <= '8') {
                squares += c - '0';
                continue;
            }
            const size_t colour = std::islower(static_cast<unsigned char>(c)) != 0 ? 1 : 0;
            const char piece = char(std::toupper(static_cast<unsigned char>(c)));
            if (std::string_view("KQRBNP").find(piece) == std::string_view::npos)
                return false;
            squares++;
            men[colour]++;
            kings[colour] += piece == 'K' ? 1 : 0;
            if (piece == 'P' && (i == 0 || i == 7))
                return false;
        }
        if (squares != 8)
            return false;
    }
    return ranks.size() == 8 && kings[WHITE] == 1 && kings[BLACK] == 1 && men[WHITE] <= MOST_MEN &&
           men[BLACK] <= MOST_MEN;
}

// Whether a rook stands where the king could castle with it in Chess960, to its right or left.
static bool CouldCastle(Colour side, bool toTheRight) {
    const int king = KingSquare[side];
    if (RelativeRank(side, king) != 0)
        return false;
    for (Bitboard rooks = PieceBB[ROOK][side] & RelativeRankBB(side, 0); rooks;) {
        if ((PopLowest(rooks) > king) == toTheRight)
            return true;
    }
    return false;
}

// Castling with rooks that are named by their files, or from other squares than the usual ones, is
// that of another chess. Rights that make no sense at all are only a careless text.
static bool HasOtherCastling(std::string_view rights) {
    if (rights == "-")
        return false;
    for (const char c : rights) {
        const size_t right = std::string_view("KQkq").find(c);
        if (right == std::string_view::npos)
            return true;
        const Colour side = right < 2 ? WHITE : BLACK;
        if ((CastleRights & 1 << right) == 0 && CouldCastle(side, right % 2 == 0))
            return true;
    }
    return false;
}

static void SetUpFen(PlayedGame& game) {
    const std::vector<std::string_view> fields = Split(game.fen, ' ');
    if (fields.size() < 2 || !IsPlacement(fields[0]) || (fields[1] != "w" && fields[1] != "b")) {
        game.kind = PlayedGame::BROKEN;
        game.reason = "the FEN \"" + game.fen + "\" is no position";
        return;
    }
    SetUpStart(game);
    game.firstSide = SideToMove;
    if (fields.size() > 5) {
        const std::string_view number = fields[5];
        std::from_chars(number.data(), number.data() + number.size(), game.firstNumber);
        game.firstNumber = std::clamp(game.firstNumber, 1, 9999);
    }
    if (fields.size() > 2 && HasOtherCastling(fields[2])) {
        game.kind = PlayedGame::OTHER_CHESS;
        game.reason = "it castles as in another kind of chess";
    } else if (InCheck(ChangeSide(SideToMove))) {
        game.kind = PlayedGame::BROKEN;
        game.reason = "in the FEN \"" + game.fen + "\" a king can be taken";
    }
}

static void PlayMoves(PlayedGame& game, const GameText& text, std::string_view source) {
    for (const WrittenMove& written : text.moves) {
        const std::string_view word = written.word.In(source);
        const SanMove found = PgnParseSan(word);
        if (found.matches != 1 || game.moves.size() >= MOST_PLIES) {
            game.kind = PlayedGame::BROKEN;
            game.faultPlace = written.word.begin;
            game.reason = game.MoveNumber(game.moves.size()) + " " + std::string(word);
            game.reason += found.matches == 1  ? " is one move too many"
                           : found.matches > 1 ? " is more than one legal move"
                                               : " is no legal move";
            return;
        }
        game.moves.push_back(found.move);
        MakeMove(found.move, true);
    }
}

std::string PlayedGame::MoveNumber(size_t ply) const {
    const size_t plies = ply + (firstSide == BLACK ? 1 : 0);
    return std::to_string(size_t(firstNumber) + plies / 2) + (plies % 2 == 0 ? "." : "...");
}

void SetUpStart(const PlayedGame& game) {
    if (game.fen.empty())
        SetStartPosition();
    else
        LoadFen(game.fen.c_str(), FenFields::STANDARD);
}

PlayedGame Replay(const GameText& text, std::string_view source) {
    PlayedGame game;
    const std::string variant = Lower(text.Tag("Variant"));
    if (std::ranges::find(OrdinaryChess, variant) == OrdinaryChess.end()) {
        game.kind = PlayedGame::OTHER_CHESS;
        game.reason = "it is " + std::string(text.Tag("Variant"));
        return game;
    }
    if (text.fault != nullptr) {
        game.kind = PlayedGame::BROKEN;
        game.faultPlace = text.faultPlace;
        game.reason = text.fault;
        return game;
    }
    if (text.tags.empty() && text.moves.empty()) {
        game.kind = PlayedGame::BROKEN;
        game.reason = "it has neither tags nor moves";
        return game;
    }
    game.fen = text.Tag("FEN");
    SetUpStart(game);
    if (!game.fen.empty())
        SetUpFen(game);
    if (game.kind == PlayedGame::CHESS)
        PlayMoves(game, text, source);
    SetUpStart(game);
    return game;
}
