// The tables that captures and promotions in a class lead to.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "table_value.h"
#include "tablebase/classes.h"
#include "tablebase/table_index.h"

// A class with some men exchanged: its number, 0 for bare kings, and whether its first-named side
// is the second side of the class that it came from.
struct ReachedClass {
    int number;
    bool swapped;
};

// All classes that one move leads to, without bare kings.
std::vector<int> SmallerClasses(int classNumber);

class SmallerTables {
public:
    explicit SmallerTables(int classNumber);
    // Reads the tables of all smaller classes from a directory. What went wrong, or an empty text.
    std::string Load(const std::filesystem::path& directory);

    // What is left of the class after side `mover` has captured a man of kind `captured` and
    // promoted a pawn to `promoted`, TB_KINDS for no man. Both men must be there.
    ReachedClass Reached(int mover, int captured, int promoted) const {
        return reached[mover][captured][promoted];
    }
    // The value for the side to move, which is `side` of the reached class; VALUE_BROKEN when the
    // position is illegal. `men` are in the terms of the reached class.
    TableValue Value(int number, Colour side, const TablebaseMen& men) const;

private:
    std::vector<int> numbers; // of the smaller classes
    ReachedClass reached[2][TB_KINDS + 1][TB_KINDS + 1] = {};
    std::array<std::array<std::vector<uint8_t>, 2>, LAST_FOUR_MEN_CLASS + 1> tables;
};
