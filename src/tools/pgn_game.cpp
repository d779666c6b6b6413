#include "tools/pgn_game.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "board/attackers.h"
#include "board/fen.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "tools/pgn_moves.h"

namespace {

// What a set-up needs besides the tags that the caller wants.
struct SetUp {
    char fen[PGN_VALUE_LENGTH + 1] = "";
    bool otherChess = false;
};

// Ordinary chess by the names that programs write into the tag for variants.
constexpr std::string_view OrdinaryChess[] = {"",      "standard",      "normal",
                                              "chess", "from position", "?"};

} // namespace

static char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

static bool SameText(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, Lower, Lower);
}

static bool BeginsWith(std::string_view name, std::string_view beginning) {
    return SameText(name.substr(0, beginning.size()), beginning);
}

// What is no result leaves the one that is known.
static void NoteResult(std::string_view value, PgnResult& result) {
    if (value.starts_with("*"))
        result = PGN_UNKNOWN_RESULT;
    else if (value.starts_with("1-"))
        result = PGN_WHITE_WON;
    else if (value.starts_with("0-"))
        result = PGN_BLACK_WON;
    else if (value.starts_with("1/"))
        result = PGN_DRAWN;
}

// The decimal number at the beginning, 0 where there is none; cut to what no game reaches.
static int32_t NumberFrom(std::string_view value) {
    constexpr int32_t largest = 1000000;
    int32_t number = 0;
    for (const char c : value) {
        if (c < '0' || c > '9')
            break;
        number = std::min(number * 10 + (c - '0'), largest);
    }
    return number;
}

// The two tags that stand for themselves are known by their first letters, the others by their
// whole names.
static void NoteTag(const PgnTag& tag, PgnGame& game, SetUp& setUp) {
    if (BeginsWith(tag.name, "Result"))
        NoteResult(tag.value, game.result);
    else if (BeginsWith(tag.name, "PlyCount"))
        game.plyCount = NumberFrom(tag.value);
    else if (SameText(tag.name, "FEN"))
        std::strcpy(setUp.fen, tag.value);
    else if (SameText(tag.name, "Variant"))
        setUp.otherChess = std::ranges::none_of(
            OrdinaryChess, [&](auto name) { return SameText(tag.value, name); });
    for (PgnWantedTag& wanted : game.wanted) {
        if (SameText(tag.name, wanted.name))
            std::strcpy(wanted.value, tag.value);
    }
}

static void ReadTags(PgnReader& reader, PgnGame& game, SetUp& setUp) {
    for (PgnTagEnd follows = PgnTagEnd::ANOTHER_TAG; follows == PgnTagEnd::ANOTHER_TAG;) {
        PgnTag tag;
        follows = PgnReadTag(reader, tag);
        NoteTag(tag, game, setUp);
    }
}

// Game records name the square behind a pawn that has made a double step, the board's own reader
// the pawn's. Only the fourth field of a position can be such a square.
static std::string WithPawnSquare(std::string fen) {
    size_t field = 0;
    for (int i = 0; i < 3 && field != std::string::npos; i++)
        field = fen.find_first_not_of(' ', fen.find(' ', field));
    if (field < fen.size() && field + 1 < fen.size()) {
        char& rank = fen[field + 1];
        rank = rank == '3' ? '4' : rank == '6' ? '5' : rank;
    }
    return fen;
}

static void SetUpBoard(const SetUp& setUp, PgnGame& game) {
    if (setUp.fen[0] != '\0')
        LoadFen(WithPawnSquare(setUp.fen).c_str());
    else
        SetStartPosition();
    game.ply = Ply;
}

static void SkipMoves(PgnReader& reader, PgnGame& game) {
    while (PgnReadMove(reader, game.moveText) != PgnWord::END_OF_GAME) {
    }
    game.inside = false;
}

bool PgnNextGame(PgnReader& reader, PgnGame& game) {
    if (game.inside)
        SkipMoves(reader, game);
    game.result = PGN_UNKNOWN_RESULT;
    game.plyCount = 0;
    game.moveText[0] = '\0';
    for (PgnWantedTag& wanted : game.wanted)
        wanted.value[0] = '\0';
    // What stands before the tags is no game yet.
    PgnSkipToMoves(reader);
    if (!PgnSkipSpace(reader))
        return false;
    SetUp setUp;
    if (PgnAtTag(reader)) {
        ReadTags(reader, game, setUp);
        PgnSkipToMoves(reader);
    }
    game.number++;
    game.inside = true;
    SetUpBoard(setUp, game);
    if (setUp.otherChess)
        SkipMoves(reader, game);
    return true;
}

PgnStep PgnNextMove(PgnReader& reader, PgnGame& game) {
    if (!game.inside)
        return PgnStep::GAME_END;
    const PgnWord word = PgnReadMove(reader, game.moveText);
    game.inside = word != PgnWord::END_OF_GAME;
    if (!game.inside)
        return PgnStep::GAME_END;
    game.move = NO_MOVE;
    if (word == PgnWord::NULL_MOVE)
        return InCheck(SideToMove) ? PgnStep::UNKNOWN_MOVE : PgnStep::MOVE;
    const SanMove found = PgnParseSan(game.moveText);
    game.move = found.move;
    if (found.matches == 1)
        return PgnStep::MOVE;
    return found.matches == 0 ? PgnStep::UNKNOWN_MOVE : PgnStep::AMBIGUOUS_MOVE;
}

void PgnPlay(PgnGame& game) {
    ForgetOldHistory();
    if (game.move == NO_MOVE)
        MakeNullMove();
    else
        MakeMove(game.move, true);
    game.ply++;
}
