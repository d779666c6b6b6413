#include "tablebase/classes.h"

#include <algorithm>

namespace {

constexpr int MAX_MEN_OF_SIDE = 3; // beside the king
constexpr char KindLetters[TB_KINDS + 1] = "qrbnp";

// The men of one side beside its king.
struct SideMen {
    uint8_t count[TB_KINDS];
    uint8_t men;
};

// All sides of up to three men beside the king: fewer men first, then in the order of their names.
constexpr int SIDES = 1 + 5 + 15 + 35;
constexpr int FirstSide[MAX_MEN_OF_SIDE + 2] = {0, 1, 6, 21, SIDES};

using SideList = std::array<SideMen, SIDES>;

// Appends all sides that have `men` and `more` men of `kind` or a later one.
constexpr void AppendSides(SideList& sides, int& length, SideMen men, int kind, int more) {
    if (more == 0) {
        sides[size_t(length++)] = men;
        return;
    }
    for (int k = kind; k < TB_KINDS; k++) {
        SideMen next = men;
        next.count[k]++;
        next.men++;
        AppendSides(sides, length, next, k, more - 1);
    }
}

constexpr SideList MakeSides() {
    SideList sides = {};
    int length = 0;
    for (int men = 0; men <= MAX_MEN_OF_SIDE; men++)
        AppendSides(sides, length, SideMen{}, TB_QUEEN, men);
    return sides;
}

constexpr SideList Sides = MakeSides();

// Two bits for each kind, none of which may exceed three.
constexpr int KEYS = 1 << (2 * TB_KINDS);
constexpr uint8_t NO_SIDE = 255;

constexpr std::array<uint8_t, KEYS> MakeSideByKey() {
    std::array<uint8_t, KEYS> table = {};
    table.fill(NO_SIDE);
    for (size_t i = 0; i < SIDES; i++) {
        size_t key = 0;
        for (int k = 0; k < TB_KINDS; k++)
            key |= size_t{Sides[i].count[k]} << (2 * k);
        table[key] = uint8_t(i);
    }
    return table;
}

constexpr std::array<uint8_t, KEYS> SideByKey = MakeSideByKey();

// The six-men classes that hold mates too long for one byte, by the sizes of their published files;
// in the order of their numbers.
constexpr std::string_view WideClasses =
    "kqrpkq kqbpkq kqbpkp kqnpkq kqnpkp kqppkq kqppkp krrpkq krrpkp krbpkq krbpkp krnpkq krnpkp "
    "krppkq krppkp kbbpkq kbbpkr kbbpkp kbnpkq kbnpkr kbnpkp kbppkq kbppkr kbppkp knppkq knppkp "
    "kqrkqp kqbkqp kqnkqp kqnkpp kqpkqp kqpkrr kqpkrb kqpkpp krrknp krbknp krbkpp krnkbn krnkbp "
    "krnknp krnkpp krpkbb krpkbn krpkbp krpknn krpknp krpkpp kbbknp kbnknp kbnkpp kbpknn kbpknp "
    "kbpkpp knnknp knpkpp";
// The only class of up to five men whose longest mate (127 moves) does not fit.
constexpr std::string_view WideFiveMenClass = "kppkp";

constexpr TablebaseClass MakeClass(const SideMen& strong, const SideMen& weak) {
    TablebaseClass c = {};
    for (int side = 0; side < 2; side++) {
        c.name[c.men++] = 'k';
        for (int k = 0; k < TB_KINDS; k++) {
            c.count[side][k] = (side == 0 ? strong : weak).count[k];
            for (int i = 0; i < c.count[side][k]; i++)
                c.name[c.men++] = KindLetters[k];
        }
    }
    c.symmetric = &strong == &weak;
    return c;
}

using ClassNumbers = std::array<std::array<uint16_t, SIDES>, SIDES>;

// Numbers all pairs of sides, the stronger one first.
struct Numbering {
    std::array<TablebaseClass, TABLEBASE_CLASSES + 1> classes;
    ClassNumbers numbers; // [first-named][other]; 0 for none
    int length;
    bool complete;
};

constexpr void AppendClasses(Numbering& n, int strongMen, int weakMen) {
    for (int strong = FirstSide[strongMen]; strong < FirstSide[strongMen + 1]; strong++) {
        const int first = strongMen == weakMen ? strong : FirstSide[weakMen];
        for (int weak = first; weak < FirstSide[weakMen + 1]; weak++) {
            n.length++;
            n.classes[size_t(n.length)] = MakeClass(Sides[size_t(strong)], Sides[size_t(weak)]);
            n.numbers[size_t(strong)][size_t(weak)] = uint16_t(n.length);
        }
    }
}

// False when a name in the list of wide classes is none, or not in its place.
constexpr bool SetWidths(Numbering& n) {
    std::string_view wide = WideClasses;
    for (TablebaseClass& c : n.classes) {
        const std::string_view name(c.name, c.men);
        if (c.men < MAX_TABLEBASE_MEN) {
            c.width = name == WideFiveMenClass ? WIDTH_TWO_BYTES : WIDTH_ONE_BYTE;
        } else if (wide.substr(0, c.men) == name) {
            c.width = WIDTH_TWO_BYTES;
            wide.remove_prefix(std::min(wide.size(), name.size() + 1));
        }
    }
    return wide.empty();
}

constexpr Numbering MakeNumbering() {
    Numbering n = {};
    for (int men = 1; men <= MAX_TABLEBASE_MEN - 2; men++) {
        for (int strong = MAX_MEN_OF_SIDE; strong >= 1; strong--) {
            const int weak = men - strong;
            if (weak >= 0 && weak <= strong)
                AppendClasses(n, strong, weak);
        }
    }
    n.complete = SetWidths(n) && n.length == TABLEBASE_CLASSES;
    return n;
}

constexpr Numbering Numbered = MakeNumbering();
static_assert(Numbered.complete);
static_assert(Numbered.classes[LAST_THREE_MEN_CLASS].men == 3 &&
              Numbered.classes[LAST_FOUR_MEN_CLASS].men == 4 &&
              Numbered.classes[LAST_FIVE_MEN_CLASS].men == 5);

constexpr ClassNumbers NumberOfSides = Numbered.numbers;

// NO_SIDE with more men of a kind, or in all, than any class has.
uint8_t SideOf(const int32_t (&pieceCount)[PIECE_CODES][2], Colour colour) {
    uint32_t key = 0;
    uint32_t all = 0;
    for (int k = 0; k < TB_KINDS; k++) {
        const auto count = uint32_t(pieceCount[PieceOfKind[k]][colour]);
        key |= count << (2 * k);
        all |= count;
    }
    return all > MAX_MEN_OF_SIDE ? NO_SIDE : SideByKey[key];
}

} // namespace

constinit const std::array<TablebaseClass, TABLEBASE_CLASSES + 1> TablebaseClasses =
    Numbered.classes;

int FindTablebaseClass(const int32_t (&pieceCount)[PIECE_CODES][2], bool& swapped) {
    const uint8_t white = SideOf(pieceCount, WHITE);
    const uint8_t black = SideOf(pieceCount, BLACK);
    swapped = false;
    if (white == NO_SIDE || black == NO_SIDE)
        return 0;
    const int number = NumberOfSides[white][black];
    if (number != 0)
        return number;
    swapped = true;
    return NumberOfSides[black][white];
}

int FindTablebaseClass(std::string_view name) {
    for (int number = 1; number <= TABLEBASE_CLASSES; number++) {
        const TablebaseClass& c = TablebaseClasses[size_t(number)];
        if (name == std::string_view(c.name, c.men))
            return number;
    }
    return 0;
}
