#include "record.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "board/fen.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/moves/san.h"
#include "board/notation.h"
#include "board/position.h"
#include "companions/shared/text_lines.h"

namespace {

constexpr std::string_view FEN_WORD = "fen ";
constexpr std::string_view MOVES_WORD = " moves ";
constexpr size_t LINE_WIDTH = 80;

} // namespace

static void SetUpPosition(const GameStart& start) {
    if (start.fen.empty())
        SetStartPosition();
    else
        LoadFen(start.fen.c_str(), FenFields::STANDARD);
}

void SetUp(const GameStart& start) {
    SetUpPosition(start);
    for (const Move move : start.moves)
        MakeMove(move, true);
}

std::string PositionWords(const GameRecord& record) {
    std::string words = record.start.fen.empty() ? "startpos" : "fen " + record.start.fen;
    if (!record.moves.empty())
        words += " moves";
    for (const Move move : record.moves)
        words += " " + MoveText(move);
    return words;
}

static bool HasOneKingEach() {
    const auto isKing = [](Colour colour) {
        return [colour](int sq) { return Board[sq] == KING && ColourOn(sq) == colour; };
    };
    int squares[64];
    for (int sq = 0; sq < 64; sq++)
        squares[sq] = sq;
    return std::ranges::count_if(squares, isKing(WHITE)) == 1 &&
           std::ranges::count_if(squares, isKing(BLACK)) == 1;
}

bool ReadStart(const std::string& words, GameStart& start) {
    const size_t place = std::min(words.find(MOVES_WORD), words.size());
    const std::string position = words.substr(0, place);
    start = {};
    if (position.starts_with(FEN_WORD))
        start.fen = position.substr(FEN_WORD.size());
    else if (position != "startpos")
        return false;
    SetUpPosition(start);
    if (!HasOneKingEach())
        return false;
    if (place == words.size())
        return true;
    const std::string moves = words.substr(place + MOVES_WORD.size());
    for (const std::string_view word : Split(moves, ' ')) {
        const Move move = MoveFromText(word);
        if (!IsLegal(move))
            return false;
        start.moves.push_back(move);
        MakeMove(move, true);
    }
    return true;
}

static void AddWord(std::string& text, size_t& column, const std::string& word) {
    const bool breaks = column + 1 + word.size() > LINE_WIDTH;
    if (column > 0)
        text += breaks ? '\n' : ' ';
    column = column == 0 || breaks ? word.size() : column + 1 + word.size();
    text += word;
}

// Leaves the position at the end of the game on the board.
std::string WritePgn(const GameRecord& record, const std::string& event,
                     const std::string& result) {
    std::string text = "[Event \"" + event + "\"]\n[Result \"" + result + "\"]\n";
    if (!record.start.fen.empty())
        text += "[SetUp \"1\"]\n[FEN \"" + record.start.fen + "\"]\n";
    text += '\n';
    SetUpPosition(record.start);
    size_t column = 0;
    int number = 1;
    for (size_t i = 0; i < record.moves.size(); i++) {
        if (SideToMove == WHITE)
            AddWord(text, column, std::to_string(number) + ".");
        else if (i == 0)
            AddWord(text, column, std::to_string(number) + "...");
        number += SideToMove == BLACK;
        AddWord(text, column, SanText(record.moves[i]));
        MakeMove(record.moves[i], true);
    }
    AddWord(text, column, result);
    return text + "\n\n";
}
