#include "companions/shared/labelled_position.h"

#include <charconv>
#include <vector>

#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/position.h"
#include "companions/shared/text_lines.h"

template <typename Number> static bool ReadNumber(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stopped == end;
}

std::optional<LabelledPosition> ReadLabelledPosition(std::string_view line) {
    const std::vector<std::string_view> columns = Split(line, '\t');
    int score = 0;
    uint64_t seed = 0;
    if (columns.size() != 4 || Split(columns[0], ' ').size() != 6 ||
        !ReadNumber(columns[1], score) || !ReadNumber(columns[3], seed))
        return std::nullopt;
    if (columns[2] != "1-0" && columns[2] != "1/2-1/2" && columns[2] != "0-1")
        return std::nullopt;
    return LabelledPosition{columns[0], score, columns[2], seed};
}

std::string LabelledLine(std::string_view fen, int score, std::string_view result, uint64_t seed) {
    std::string line(fen);
    line += '\t';
    line += std::to_string(score);
    line += '\t';
    line += result;
    line += '\t';
    line += std::to_string(seed);
    line += '\n';
    return line;
}

// Whether the pawn that has just made a double step can be taken for it.
static bool CanTakeEnPassant() {
    const int start = MoveStackTop;
    const int count = GenerateLegalMoves();
    MoveStackTop = start;
    for (int i = start; i < start + count; i++) {
        if (IsEnPassant(MoveStack[i].move))
            return true;
    }
    return false;
}

std::string UsualFen() {
    std::string fen = WriteFen(FenFields::STANDARD);
    if (!IsDoubleStep(ChangeSide(SideToMove), LastMove()) || CanTakeEnPassant())
        return fen;
    // The fourth field has two characters here.
    size_t field = 0;
    for (int i = 0; i < 3; i++)
        field = fen.find(' ', field) + 1;
    return fen.replace(field, 2, "-");
}
