#include "front/console/game_file.h"

#include <memory>
#include <string>
#include <vector>

#include "board/attackers.h"
#include "board/draw_rules.h"
#include "board/fen.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/moves/san.h"
#include "board/position.h"
#include "front/game/game.h"
#include "platform/files.h"
#include "tools/pgn_game.h"

namespace {

constexpr size_t LINE_LENGTH = 79;
constexpr const char* StartFen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

} // namespace

static const char* ResultText() {
    if (HasLegalMove())
        return HasRepeatedTwice() || FiftyMovesPassed() ? "1/2-1/2" : "*";
    if (!InCheck(SideToMove))
        return "1/2-1/2";
    return SideToMove == WHITE ? "0-1" : "1-0";
}

// Words of the movetext, broken into lines.
static void AddWord(std::string& text, size_t& column, const std::string& word) {
    if (column > 0 && column + 1 + word.size() > LINE_LENGTH) {
        text += '\n';
        column = 0;
    } else if (column > 0) {
        text += ' ';
        column++;
    }
    text += word;
    column += word.size();
}

// The moves from the position that was set up, which is on the board at the end again.
static std::string MovesText(const std::vector<Move>& moves, const char* result) {
    std::string text;
    size_t column = 0;
    for (size_t i = 0; i < moves.size(); i++) {
        const std::string number = std::to_string(MoveNumber());
        if (SideToMove == WHITE)
            AddWord(text, column, number + ".");
        else if (i == 0)
            AddWord(text, column, number + "...");
        AddWord(text, column, SanText(moves[i]));
        MakeMove(moves[i], true);
    }
    AddWord(text, column, result);
    return text + "\n";
}

static std::string Tag(const char* name, const std::string& value) {
    return std::string("[") + name + " \"" + value + "\"]\n";
}

bool SaveGame(const char* path) {
    const char* const result = ResultText();
    std::vector<Move> moves;
    for (int ply = SetupPly; ply < Ply; ply++)
        moves.push_back(UndoStack[ply].move);
    while (Ply > SetupPly)
        UnmakeMove();
    const bool engineIsWhite = Game.EngineSide == WHITE;
    std::string text = Tag("Event", "?") + Tag("Site", "?") + Tag("Date", "????.??.??") +
                       Tag("Round", "-") + Tag("White", engineIsWhite ? "Tarquelin" : "?") +
                       Tag("Black", engineIsWhite ? "?" : "Tarquelin") + Tag("Result", result);
    if (const std::string fen = WriteFen(FenFields::STANDARD); fen != StartFen)
        text += Tag("SetUp", "1") + Tag("FEN", fen);
    text += "\n" + MovesText(moves, result) + "\n";
    return ReplaceWholeFile(path, text);
}

bool LoadGame(const char* path) {
    const auto reader = std::make_unique<PgnReader>();
    if (!PgnOpen(*reader, path))
        return false;
    BeginNewGame();
    PgnGame game;
    const bool found = PgnNextGame(*reader, game);
    while (found && PgnNextMove(*reader, game) == PgnStep::MOVE)
        PgnPlay(game);
    PgnClose(*reader);
    return found;
}
