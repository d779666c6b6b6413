#include "tablebase/classes.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace {

struct Found {
    int number;
    bool swapped;
};

// The class of a board with these men besides the kings, capital letters for White.
Found ClassOf(const std::string& men) {
    const std::string letters = "..np.rbq";
    int32_t count[PIECE_CODES][2] = {{}, {1, 1}};
    for (const char man : men) {
        const bool black = letters.find(man) != std::string::npos;
        count[letters.find(black ? man : char(man - 'A' + 'a'))][black]++;
    }
    Found found = {};
    found.number = FindTablebaseClass(count, found.swapped);
    return found;
}

} // namespace

TEST(TablebaseClasses, MenOnTheBoardChooseTheClassAndTheFirstSide) {
    struct Case {
        const char* men;
        const char* name; // empty for none
        bool swapped;
    };
    for (const Case& c : {Case{"Q", "kqk", false},
                          {"q", "kqk", true},
                          {"Rn", "krkn", false},
                          {"rN", "krkn", true},
                          {"Pp", "kpkp", false},
                          {"rQ", "kqkr", false},
                          {"nNn", "knnkn", true},
                          {"Qnn", "knnkq", true},
                          {"QNqb", "kqbkqn", true},
                          {"qnRr", "kqrnkr", true},
                          {"RRrr", "krrkrr", false},
                          {"PPPq", "kpppkq", false},
                          {"", "", false},
                          {"QQQQ", "", false},
                          {"QRBN", "", false},
                          {"pppp", "", false},
                          {"QRBqr", "", false},
                          {"PPPPPPPPp", "", false}}) {
        SCOPED_TRACE(c.men);
        const Found found = ClassOf(c.men);
        EXPECT_STREQ(TablebaseClasses[size_t(found.number)].name, c.name);
        if (found.number != 0) {
            EXPECT_EQ(found.swapped, c.swapped);
        }
    }
}

TEST(TablebaseClasses, OnlyNamesOfClassesAreFound) {
    EXPECT_EQ(FindTablebaseClass("kqk"), 1);
    EXPECT_EQ(FindTablebaseClass("kpppkp"), 320);
    for (const char* name : {"", "kk", "KQK", "kqkr ", "krkq", "knbk", "kqqqqk", "kqkrkrk"})
        EXPECT_EQ(FindTablebaseClass(name), 0) << name;
}

TEST(TablebaseClasses, MatesTooLongForOneByteAreKnownOf56Classes) {
    const auto wide = [](const TablebaseClass& c) { return c.width == WIDTH_TWO_BYTES; };
    EXPECT_EQ(std::ranges::count_if(TablebaseClasses, wide), 56);
    for (const char* name : {"kppkp", "kqrpkq", "kbbpkr", "knpkpp"})
        EXPECT_TRUE(wide(TablebaseClasses[size_t(FindTablebaseClass(name))])) << name;
}
