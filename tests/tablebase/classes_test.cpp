#include "tablebase/classes.h"

#include <string>

#include <gtest/gtest.h>

// The class of a board with these men besides the kings, capital letters for White; "swapped"
// behind its name when Black has the men of the first-named side.
static std::string ClassOf(const std::string& men) {
    const std::string letters = "..np.rbq";
    int32_t count[PIECE_CODES][2] = {{}, {1, 1}};
    for (const char man : men) {
        const bool black = letters.find(man) != std::string::npos;
        count[letters.find(black ? man : char(man - 'A' + 'a'))][black]++;
    }
    bool swapped = false;
    const int number = FindTablebaseClass(count, swapped);
    const char* const name = TablebaseClasses[size_t(number)].name;
    return number != 0 && swapped ? name + std::string(" swapped") : name;
}

// Those of three and four men are met in the published tables.
TEST(TablebaseClasses, MenOnTheBoardChooseTheClassAndTheFirstSide) {
    for (const auto& [men, name] :
         {std::pair{"nNn", "knnkn swapped"}, std::pair{"Qnn", "knnkq swapped"},
          std::pair{"QNqb", "kqbkqn swapped"}, std::pair{"qnRr", "kqrnkr swapped"},
          std::pair{"RRrr", "krrkrr"}, std::pair{"PPPq", "kpppkq"}})
        EXPECT_EQ(ClassOf(men), name);
    for (const char* men : {"", "QQQQ", "QRBN", "pppp", "QRBqr", "PPPPPPPPp"})
        EXPECT_EQ(ClassOf(men), "") << men;
}

TEST(TablebaseClasses, OnlyNamesOfClassesAreFound) {
    EXPECT_EQ(FindTablebaseClass("kpppkp"), 320);
    for (const char* name : {"", "kk", "KQK", "kqkr ", "krkq", "knbk", "kqqqqk", "kqkrkrk"})
        EXPECT_EQ(FindTablebaseClass(name), 0) << name;
}
