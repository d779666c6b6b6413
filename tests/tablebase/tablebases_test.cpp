#include "tablebase/tablebases.h"

#include <filesystem>

#include "board/position.h"
#include "support/data_file.h"
#include "support/tablebase_test.h"
#include "tablebase/block_cache.h"
#include "tablebase/classes.h"
#include "tablebase/registry.h"

namespace fs = std::filesystem;

namespace {

class TablebaseDoor : public TablebaseTest {};

// From a byte as tables have it: 127 - n for a mate in n moves, n - 126 for being mated in n.
int32_t ScoreOfByte(int byte) {
    const auto value = int8_t(byte);
    return value == 127 ? NOT_FOUND
           : value > 0  ? 32700 - 2 * (127 - value)
           : value < 0  ? 2 * (value + 126) - 32700
                        : 0;
}

TEST_F(TablebaseDoor, TellsTheScoresOfPublishedTablesForEitherColour) {
    ASSERT_EQ(Register(ThreeMenTables), 3);
    int probed = 0;
    for (const auto& row : DataRows("index_vectors.csv")) {
        if (row[0] != "kqk" && row[0] != "krk" && row[0] != "kpk")
            continue;
        SCOPED_TRACE(row[1]);
        EXPECT_EQ(ProbedScore(row[1].c_str()), ScoreOfByte(std::stoi(row[3])));
        EXPECT_EQ(ProbedScore(FlippedFen(row[1]).c_str()), ScoreOfByte(std::stoi(row[3])));
        probed++;
    }
    EXPECT_GT(probed, 10);
}

TEST_F(TablebaseDoor, FailsWhereNoTableTells) {
    ASSERT_EQ(Register(ThreeMenTables), 3);
    for (const char* const fen : {
             "8/8/8/4k3/8/8/8/K7 w - - 0 1",                // bare kings
             "8/8/8/4k3/8/8/8/KN6 w - - 0 1",               // no such table
             "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", // nor any
             "8/8/8/8/8/8/1k6/K1Q5 w - - 0 1",              // kings side by side
             "8/8/8/4k3/8/8/8/K3Q3 w - - 0 1",              // the enemy is in check
             "8/8/8/8/3k4/2P5/8/K7 w - - 0 1",              // by a pawn
             "P7/8/8/4k3/8/8/8/K7 w - - 0 1",               // a pawn on the last rank
             "8/8/8/4k3/8/8/8/Q7 w - - 0 1",                // too few kings
             "8/8/8/4k3/8/8/8/KQK5 w - - 0 1",              // too many
         }) {
        SCOPED_TRACE(fen);
        EXPECT_EQ(ProbedScore(fen), NOT_FOUND);
    }
}

TEST_F(TablebaseDoor, FailsForTheSideWhoseFileIsMissing) {
    fs::copy(std::string(ThreeMenTables) + "/kqk.nbb", "kqk.nbb");
    ASSERT_EQ(Register("."), 3);
    EXPECT_EQ(ProbedScore("7k/5K2/6Q1/8/8/8/8/8 b - - 0 1"), 0);
    EXPECT_EQ(ProbedScore("8/8/8/8/8/6q1/5k2/7K w - - 0 1"), 0);
    EXPECT_EQ(ProbedScore("7k/5K2/1Q6/8/8/8/8/8 w - - 0 1"), NOT_FOUND);
}

// One file of a symmetric class knows all, whichever it is; with pawns their numbers differ.
TEST_F(TablebaseDoor, FindsBothSidesOfASymmetricClassInOneFile) {
    const char* const fen = "8/8/8/3pP3/8/1K3k2/8/8 w - d5 0 1";
    for (const Colour side : {WHITE, BLACK}) {
        SCOPED_TRACE(side);
        const char* const name = side == WHITE ? "kpkp.nbw" : "kpkp.nbb";
        const std::string seen = side == WHITE ? fen : FlippedFen(fen);
        WriteFileText(name, TableWith(seen.c_str(), side, 120));
        ASSERT_EQ(Register("."), 4);
        EXPECT_EQ(ProbedScore(fen), 32686);
        EXPECT_EQ(ProbedScore(FlippedFen(fen).c_str()), 32686);
        EXPECT_EQ(ProbedScore("8/8/8/3pP3/8/1K3k2/8/8 w - - 0 1"), 0);
        EXPECT_EQ(ProbedScore("8/8/8/3pP3/8/1K3k2/8/8 b - - 0 1"), 0);
        fs::remove(name);
    }
}

// The longest mates of some classes do not fit one byte.
TEST_F(TablebaseDoor, ReadsEntriesOfTwoBytes) {
    const char* const fen = "8/p7/8/8/8/1K3k2/PP6/8 w - - 0 1";
    const std::string low = TableWith(fen, WHITE, 1);
    for (const auto& [word, score] :
         {std::pair{32766, 32698}, std::pair{32767 - 127, 32446}, std::pair{-32766 + 127, -32446},
          std::pair{0, 0}, std::pair{32767, NOT_FOUND}, std::pair{77, NOT_FOUND}}) {
        std::string table(2 * low.size(), '\0');
        table[2 * low.find('\1')] = char(word & 255);
        table[2 * low.find('\1') + 1] = char(word >> 8);
        WriteFileText("kppkp.nbw", table);
        ASSERT_EQ(Register("."), 5);
        EXPECT_EQ(ProbedScore(fen), score) << word;
    }
}

TEST_F(TablebaseDoor, FailsBeyondTheEndOfAFileAndWhenItShrinksInUse) {
    const char* const early = "8/8/8/8/8/2k5/8/K6Q w - - 0 1";
    const char* const late = "8/7Q/8/6k1/8/3K4/8/8 w - - 0 1";
    WriteFileText("kqk.nbw", ThreeMenTable("kqk.nbw").substr(0, 8192));
    ASSERT_EQ(Register("."), 3);
    EXPECT_EQ(ProbedScore(late), NOT_FOUND);
    EXPECT_NE(ProbedScore(early), NOT_FOUND);
    ASSERT_EQ(Register("."), 3);
    fs::resize_file("kqk.nbw", 1);
    EXPECT_EQ(ProbedScore(early), NOT_FOUND);
}

TEST_F(TablebaseDoor, KeepsTheBlocksUsedLast) {
    // Three blocks of one table, and room for two.
    const std::string table = ThreeMenTable("kpk.nbw");
    WriteFileText("kpk.nbw", table);
    ASSERT_EQ(Register("."), 3);
    AllocateBlockCache(2 * CACHE_ENTRY_BYTES + 8279);
    ASSERT_EQ(CacheEntries(), 2);
    TableFile& file = *RegisteredTable(FindTablebaseClass("kpk"), WHITE);
    int32_t value = 0;
    const auto read = [&](int block) {
        return ReadTableEntry(file, uint64_t(block) * 8192, value);
    };
    EXPECT_TRUE(read(0));
    EXPECT_TRUE(read(1));
    EXPECT_TRUE(read(0));
    EXPECT_TRUE(read(2)); // in the place of block 1
    fs::resize_file("kpk.nbw", 0);
    EXPECT_TRUE(read(0));
    EXPECT_TRUE(read(2));
    EXPECT_FALSE(read(1));
    // What could not be read took the place of block 0.
    EXPECT_FALSE(read(0));
    EXPECT_TRUE(read(2));
}

// Too little memory for one block is no cache, and no failure.
TEST_F(TablebaseDoor, NeedsACache) {
    ASSERT_EQ(Register(ThreeMenTables), 3);
    Tablebases.EgtbCacheBytes = 51;
    AllocateTablebaseCache();
    EXPECT_EQ(LargestTablebase(), 3);
    EXPECT_EQ(ProbedScore("7k/5K2/1Q6/8/8/8/8/8 w - - 0 1"), NOT_FOUND);
}

} // namespace
