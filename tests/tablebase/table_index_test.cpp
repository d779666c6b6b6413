#include "tablebase/table_index.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/position.h"
#include "support/data_file.h"
#include "support/engine_setup.h"

namespace {

class TableIndexTest : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
    }
    void TearDown() override {
        ReleaseIndexes();
    }
};

struct Entry {
    std::string name;
    uint64_t index;
};

Entry EntryOf(const std::string& fen) {
    LoadFen(fen.c_str());
    bool swapped = false;
    const int number = FindTablebaseClass(PieceCount, swapped);
    const auto side = Colour(SideToMove ^ int(swapped));
    EXPECT_TRUE(PrepareIndex(number, side));
    int epSquare = IsDoubleStep(LastMove()) ? To(LastMove()) : NO_EN_PASSANT;
    if (swapped && epSquare != NO_EN_PASSANT)
        epSquare ^= 56;
    return {TablebaseClasses[size_t(number)].name,
            TableIndex(number, side, CollectTablebaseMen(swapped), epSquare)};
}

// The same position with colours exchanged.
std::string WithColoursSwapped(const std::string& fen) {
    std::istringstream fields(fen);
    std::string men, side, rights, ep;
    fields >> men >> side >> rights >> ep;
    std::string swapped;
    std::istringstream ranks(men);
    for (std::string rank; std::getline(ranks, rank, '/');)
        swapped = rank + (swapped.empty() ? "" : "/") + swapped;
    for (char& c : swapped)
        c = char(std::isupper(c) ? std::tolower(c) : std::toupper(c));
    if (ep != "-")
        ep[1] = ep[1] == '5' ? '4' : '5';
    return swapped + (side == "w" ? " b - " : " w - ") + ep;
}

constexpr Bitboard PAWN_SQUARES = 0x00ffffffffffff00;

Bitboard AllMen(const TablebaseMen& men) {
    Bitboard all = SquareBit(men.king[0]) | SquareBit(men.king[1]);
    for (const auto& side : men.men) {
        for (const Bitboard kind : side)
            all |= kind;
    }
    return all;
}

// The men of a class on squares of their own.
TablebaseMen RandomMen(int number, std::mt19937& random) {
    TablebaseMen men = {{int(random() % 32), 32 + int(random() % 32)}, {}};
    for (int side = 0; side < 2; side++) {
        for (int k = 0; k < TB_KINDS; k++) {
            while (CountBits(men.men[side][k]) < TablebaseClasses[size_t(number)].count[side][k]) {
                const Bitboard open = (k == TB_PAWN ? PAWN_SQUARES : ~Bitboard{0}) & ~AllMen(men);
                men.men[side][k] |= SquareBit(int(random() % 64)) & open;
            }
        }
    }
    return men;
}

TablebaseMen Mirrored(const TablebaseMen& men) {
    TablebaseMen mirrored = {{men.king[0] ^ 7, men.king[1] ^ 7}, {}};
    for (int side = 0; side < 2; side++) {
        for (int k = 0; k < TB_KINDS; k++) {
            for (Bitboard rest = men.men[side][k]; rest != 0;)
                mirrored.men[side][k] |= SquareBit(PopLowest(rest) ^ 7);
        }
    }
    return mirrored;
}

// Entries of the positions with one man, but no king, on another empty square.
std::set<uint64_t> EntriesWithOneManElsewhere(int number, Colour side, TablebaseMen men) {
    std::set<uint64_t> entries;
    const Bitboard all = AllMen(men);
    for (auto& ofSide : men.men) {
        for (int k = 0; k < TB_KINDS; k++) {
            const Bitboard before = ofSide[k];
            const Bitboard open = (k == TB_PAWN ? PAWN_SQUARES : ~Bitboard{0}) & ~all;
            for (Bitboard from = before; from != 0;) {
                const Bitboard others = before & ~SquareBit(PopLowest(from));
                for (Bitboard to = open; to != 0;) {
                    ofSide[k] = others | SquareBit(PopLowest(to));
                    entries.insert(TableIndex(number, side, men, NO_EN_PASSANT));
                }
            }
            ofSide[k] = before;
        }
    }
    return entries;
}

// All sets of squares for so many pawns, without those `taken`.
std::vector<Bitboard> PawnSets(int size, Bitboard taken) {
    if (size == 0)
        return {0};
    std::vector<Bitboard> sets;
    for (Bitboard rest = PAWN_SQUARES & ~taken; rest != 0;) {
        const Bitboard first = SquareBit(PopLowest(rest));
        taken |= first;
        for (const Bitboard others : PawnSets(size - 1, taken))
            sets.push_back(first | others);
    }
    return sets;
}

// Entries of all positions in which the pawn on `ep` can be taken, with the kings where no pawn of
// the side to move ever gives check.
std::vector<uint64_t> EnPassantEntries(int number, Colour side, int ep) {
    const TablebaseClass& c = TablebaseClasses[size_t(number)];
    const Colour them = ChangeSide(side);
    const Bitboard pawn = SquareBit(ep);
    const Bitboard beside = ((pawn & ~FILE_A) >> 1) | ((pawn & ~FILE_H) << 1);
    TablebaseMen men = {};
    men.king[side] = side == WHITE ? 0 : 56;
    men.king[them] = men.king[side] + 7;
    std::vector<uint64_t> entries;
    for (const Bitboard own : PawnSets(c.count[side][TB_PAWN], pawn)) {
        if ((own & beside) == 0)
            continue;
        for (const Bitboard other : PawnSets(c.count[them][TB_PAWN] - 1, own | pawn)) {
            men.men[side][TB_PAWN] = own;
            men.men[them][TB_PAWN] = other | pawn;
            entries.push_back(TableIndex(number, side, men, ep));
        }
    }
    return entries;
}

} // namespace

TEST_F(TableIndexTest, ThreeAndFourMenHaveTheEntriesOfThePublishedTables) {
    const auto rows = DataRows("index_vectors.csv");
    ASSERT_EQ(rows.size(), 296u);
    for (const auto& row : rows) {
        for (const std::string& fen : {row[1], WithColoursSwapped(row[1])}) {
            SCOPED_TRACE(fen);
            const Entry entry = EntryOf(fen);
            EXPECT_EQ(entry.name, row[0]);
            // With pawns the two tables of a symmetric class are in different orders.
            if (entry.name != "kpkp" || fen == row[1]) {
                EXPECT_EQ(entry.index, std::stoull(row[2]));
            }
        }
    }
}

TEST_F(TableIndexTest, AllClassesHaveAsManyEntriesAsThePublishedTables) {
    const auto rows = DataRows("table_sizes.csv");
    ASSERT_EQ(rows.size(), size_t{TABLEBASE_CLASSES});
    for (int number = 1; number <= TABLEBASE_CLASSES; number++) {
        const auto& row = rows[size_t(number - 1)];
        const TablebaseClass& c = TablebaseClasses[size_t(number)];
        EXPECT_EQ(c.name, row[0]);
        EXPECT_EQ(c.symmetric, row[1] == "yes") << row[0];
        EXPECT_EQ(MainTableEntries(number, WHITE), std::stoull(row[2])) << row[0];
        EXPECT_EQ(MainTableEntries(number, BLACK), std::stoull(row[3])) << row[0];
        EXPECT_EQ(TableEntries(number, WHITE) > MainTableEntries(number, WHITE), c.BothHavePawns());
    }
    EXPECT_EQ(TableEntries(FindTablebaseClass("kpkp"), BLACK), 3863492u);
}

TEST_F(TableIndexTest, ImpossiblePositionsHaveNoEntry) {
    for (const char* fen :
         {"8/8/8/8/3kK3/8/8/Q7 w - -", // kings side by side
          "8/8/8/8/3k4/3Q4/8/K7 w - -", "8/8/8/8/3k4/5N2/8/K7 w - -", "8/8/8/8/3k4/2P5/8/K7 w - -"})
        EXPECT_EQ(EntryOf(fen).index, NO_ENTRY) << fen;
    EXPECT_NE(EntryOf("8/8/8/8/3k4/3Q4/8/K7 b - -").index, NO_ENTRY);
}

// Beyond four men no published table tells the order of the entries either. What must hold in any
// order: the mirrored position has the same entry, and no man can go elsewhere within it.
TEST_F(TableIndexTest, PlacementsOfFiveAndSixMenHaveEntriesOfTheirOwn) {
    std::mt19937 random(1);
    for (int number = LAST_FOUR_MEN_CLASS + 1; number <= TABLEBASE_CLASSES; number++) {
        for (const Colour side : {WHITE, BLACK}) {
            SCOPED_TRACE(TablebaseClasses[size_t(number)].name + std::string(side ? " b" : " w"));
            ASSERT_TRUE(PrepareIndex(number, side));
            const TablebaseMen men = RandomMen(number, random);
            const uint64_t entry = TableIndex(number, side, men, NO_EN_PASSANT);
            EXPECT_EQ(TableIndex(number, side, Mirrored(men), NO_EN_PASSANT), entry);
            if (entry != NO_ENTRY) {
                EXPECT_LT(entry, MainTableEntries(number, side));
                EXPECT_EQ(EntriesWithOneManElsewhere(number, side, men).count(entry), 0u);
            }
        }
        ReleaseIndexes();
    }
}

TEST_F(TableIndexTest, ThreeLikeMenHaveAnEntryForEverySetOfSquares) {
    const int number = FindTablebaseClass("kpppk");
    for (const Colour side : {WHITE, BLACK}) {
        ASSERT_TRUE(PrepareIndex(number, side));
        std::set<uint64_t> entries;
        const std::vector<Bitboard> sets = PawnSets(3, 0);
        for (const Bitboard pawns : sets)
            entries.insert(
                TableIndex(number, side, {{0, 7}, {{0, 0, 0, 0, pawns}}}, NO_EN_PASSANT));
        EXPECT_EQ(entries.size(), 48u * 47 * 46 / 6);
        EXPECT_EQ(*entries.rbegin() - *entries.begin() + 1, entries.size());
    }
}

// With more than one pawn a side no published table tells the order of the entries, but each
// position must have one of its own within its range.
TEST_F(TableIndexTest, EnPassantEntriesAreDistinctAndBehindTheOthers) {
    struct Case {
        const char* name;
        Colour side;
    };
    for (const Case& c :
         {Case{"kpkp", WHITE}, Case{"kpkp", BLACK}, Case{"kppkp", WHITE}, Case{"kppkp", BLACK},
          Case{"kppkpp", WHITE}, Case{"kppkpp", BLACK}, Case{"kpppkp", BLACK}}) {
        SCOPED_TRACE(std::string(c.name) + (c.side == WHITE ? " w" : " b"));
        const int number = FindTablebaseClass(c.name);
        ASSERT_TRUE(PrepareIndex(number, c.side));
        std::vector<uint64_t> entries;
        const int rank = c.side == WHITE ? 4 : 3;
        for (int file = 0; file < 8; file++)
            std::ranges::copy(EnPassantEntries(number, c.side, rank * 8 + file),
                              std::back_inserter(entries));
        std::ranges::sort(entries);
        EXPECT_GE(entries.size(), 14u);
        EXPECT_GE(entries.front(), MainTableEntries(number, c.side));
        EXPECT_LT(entries.back(), TableEntries(number, c.side));
        EXPECT_EQ(std::ranges::adjacent_find(entries), entries.end());
    }
}
