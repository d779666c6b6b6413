#include "tablebase/table_index.h"

#include "support/board_test.h"
#include "support/data_file.h"
#include "support/flipped.h"

namespace {

class TableIndexTest : public BoardTest {
protected:
    void TearDown() override {
        ReleaseIndexes();
        BoardTest::TearDown();
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
    int epSquare =
        IsDoubleStep(ChangeSide(SideToMove), LastMove()) ? To(LastMove()) : NO_EN_PASSANT;
    if (swapped && epSquare != NO_EN_PASSANT)
        epSquare ^= 56;
    return {TablebaseClasses[size_t(number)].name,
            TableIndex(number, side, CollectTablebaseMen(swapped), epSquare)};
}

Bitboard AllMen(const TablebaseMen& men) {
    Bitboard all = SquareBit(men.king[0]) | SquareBit(men.king[1]);
    for (const auto& side : men.men) {
        for (const Bitboard kind : side)
            all |= kind;
    }
    return all;
}

// The men of a class on squares of their own, as far as they do not stand on the board already.
void AddMen(int number, std::mt19937& random, TablebaseMen& men) {
    for (int side = 0; side < 2; side++) {
        for (int k = 0; k < TB_KINDS; k++) {
            const Bitboard places = k == TB_PAWN ? 0x00ffffffffffff00 : ~Bitboard{0};
            while (CountBits(men.men[side][k]) < TablebaseClasses[size_t(number)].count[side][k])
                men.men[side][k] |= SquareBit(int(random() % 64)) & places & ~AllMen(men);
        }
    }
}

// A pawn of the side to move beside one that has just made a double step.
int AddPawnsThatMeet(Colour side, std::mt19937& random, TablebaseMen& men) {
    const int ep = (side == WHITE ? 32 : 24) + int(random() % 8);
    const int beside = FileOf(ep) == 0 ? ep + 1 : ep - 1;
    men.men[side][TB_PAWN] = SquareBit(beside);
    men.men[ChangeSide(side)][TB_PAWN] = SquareBit(ep);
    return ep;
}

} // namespace

TEST_F(TableIndexTest, ThreeAndFourMenHaveTheEntriesOfThePublishedTables) {
    const auto rows = DataRows("index_vectors.csv");
    ASSERT_EQ(rows.size(), 296u);
    for (const auto& row : rows) {
        for (const std::string& fen : {row[1], FlippedFen(row[1])}) {
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

// Beyond four men no published table tells the order of the entries. That placements have entries
// of their own, also those in which a pawn can be taken en passant, was shown when this sum was
// taken; tables that were built once must be read for ever.
TEST_F(TableIndexTest, FiveAndSixMenKeepTheirEntries) {
    std::mt19937 random(1);
    uint64_t sum = 0;
    for (int number = LAST_FOUR_MEN_CLASS + 1; number <= TABLEBASE_CLASSES; number++) {
        for (const Colour side : {WHITE, BLACK}) {
            ASSERT_TRUE(PrepareIndex(number, side));
            for (int i = 0; i < 40; i++) {
                TablebaseMen men = {{int(random() % 24), 40 + int(random() % 24)}, {}};
                const bool meet = i % 2 == 0 && TablebaseClasses[size_t(number)].BothHavePawns();
                const int ep = meet ? AddPawnsThatMeet(side, random, men) : NO_EN_PASSANT;
                AddMen(number, random, men);
                const uint64_t entry = TableIndex(number, side, men, ep);
                EXPECT_TRUE(entry == NO_ENTRY || entry < TableEntries(number, side));
                sum = (sum ^ entry) * 0x9e3779b97f4a7c15;
            }
        }
        ReleaseIndexes();
    }
    EXPECT_EQ(sum, 165483760526499959u);
}
