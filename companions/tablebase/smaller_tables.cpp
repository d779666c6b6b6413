#include "smaller_tables.h"

#include <algorithm>

#include "board/attacks.h"
#include "companions/shared/files.h"
#include "table_file.h"

namespace {

constexpr int NONE = TB_KINDS;

// Calls `visit` with every way to leave the class: mover, kind captured and kind promoted to.
template <typename Visit> void ForEachExit(const TablebaseClass& c, Visit visit) {
    for (int mover = 0; mover < 2; mover++) {
        for (int captured = 0; captured <= NONE; captured++) {
            if (captured != NONE && c.count[1 - mover][captured] == 0)
                continue;
            for (int promoted = 0; promoted <= NONE; promoted++) {
                const bool promotes = promoted < TB_PAWN && c.count[mover][TB_PAWN] != 0;
                if (promotes || (promoted == NONE && captured != NONE))
                    visit(mover, captured, promoted);
            }
        }
    }
}

ReachedClass ClassAfter(const TablebaseClass& c, int mover, int captured, int promoted) {
    int32_t count[PIECE_CODES][2] = {};
    for (int side = 0; side < 2; side++) {
        for (int k = 0; k < TB_KINDS; k++)
            count[PieceOfKind[k]][side] = c.count[side][k];
    }
    if (captured != NONE)
        count[PieceOfKind[captured]][1 - mover]--;
    if (promoted != NONE) {
        count[PAWN][mover]--;
        count[PieceOfKind[promoted]][mover]++;
    }
    ReachedClass reached = {};
    reached.number = FindTablebaseClass(count, reached.swapped);
    return reached;
}

} // namespace

std::vector<int> SmallerClasses(int classNumber) {
    const TablebaseClass& c = TablebaseClasses[size_t(classNumber)];
    std::vector<int> numbers;
    ForEachExit(c, [&](int mover, int captured, int promoted) {
        const int number = ClassAfter(c, mover, captured, promoted).number;
        if (number != 0 && std::ranges::find(numbers, number) == numbers.end())
            numbers.push_back(number);
    });
    return numbers;
}

SmallerTables::SmallerTables(int classNumber) : numbers(SmallerClasses(classNumber)) {
    const TablebaseClass& c = TablebaseClasses[size_t(classNumber)];
    ForEachExit(c, [&](int mover, int captured, int promoted) {
        reached[mover][captured][promoted] = ClassAfter(c, mover, captured, promoted);
    });
}

std::string SmallerTables::Load(const std::filesystem::path& directory) {
    for (const int number : numbers) {
        for (const Colour side : {WHITE, BLACK}) {
            const std::filesystem::path path = directory / TableFileName(number, side);
            if (const auto error = ReadWholeFile(path, tables[size_t(number)][side]))
                return path.string() + ": " + error.message();
        }
    }
    return "";
}

TableValue SmallerTables::Value(int number, Colour side, const TablebaseMen& men) const {
    if (number == 0) {
        const bool beside = (KingAttacks[men.king[0]] & SquareBit(men.king[1])) != 0;
        return beside ? VALUE_BROKEN : VALUE_DRAW;
    }
    const std::vector<uint8_t>& table = tables[size_t(number)][side];
    const uint64_t index = TableIndex(number, side, men, NO_EN_PASSANT);
    // Tables end after the last entry in use.
    return index < table.size() ? TableValue(table[index]) : VALUE_BROKEN;
}
