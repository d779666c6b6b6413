#include "search/hash_memory.h"

#include <unistd.h>

#include "board/fen.h"
#include "board/moves/order_tables.h"
#include "eval/pawns/pawn_structure.h"
#include "support/scratch.h"
#include "support/search_test.h"

namespace {

class HashMemoryTest : public SearchingTest {
protected:
    void TearDown() override {
        TranspositionCount = DEFAULT_TRANSPOSITION_ENTRIES;
        PawnHashCount = DEFAULT_PAWN_ENTRIES;
        OldTablesStay = false;
        SearchingTest::TearDown();
    }
};

bool StoresAndFinds() {
    HashStore(60, NO_MOVE, 1, BOUND_EXACT, false, 0);
    return HashProbe().found;
}

bool StoresAndFindsPawns() {
    PawnProbe();
    Pawns.key ^= 1; // not at hand any more
    return FindPawns();
}

// In the child process of a death test: what is printed goes where the test can see it.
void ShowOutput() {
    dup2(STDERR_FILENO, STDOUT_FILENO);
}

} // namespace

TEST_F(HashMemoryTest, MegabytesBecomeEntries) {
    struct Case {
        int32_t megabytes;
        int32_t entries, pawnEntries;
    };
    for (const Case& c : {Case{0, 0, 0}, Case{1, 47662, 40329}, Case{10, 476625, 403298},
                          Case{64, 3050402, 2581110}, Case{4096, 0, 0}, Case{4097, 47662, 40329}}) {
        SCOPED_TRACE(c.megabytes);
        ResizeHash(c.megabytes);
        EXPECT_EQ(c.entries, TranspositionCount);
        EXPECT_EQ(c.entries > 0, StoresAndFinds());
        // Without pawns the key is 0, as it is in memory that nobody has cleared.
        LoadFen("4k3/8/8/8/8/8/8/4K3 w - -");
        ResizePawnHash(c.megabytes);
        EXPECT_EQ(c.pawnEntries, PawnHashCount);
        EXPECT_FALSE(FindPawns());
        EXPECT_EQ(c.pawnEntries > 0, StoresAndFindsPawns());
    }
}

TEST_F(HashMemoryTest, ResizingLosesTheContentsAndStartsTheAgesAnew) {
    HashAge = 9;
    ASSERT_TRUE(StoresAndFinds());
    ResizeHash(2);
    EXPECT_FALSE(HashProbe().found);
    EXPECT_EQ(0, HashAge);
}

TEST_F(HashMemoryTest, TablesOfNoEntriesCanBeAllocatedAndCleared) {
    TranspositionCount = PawnHashCount = 0;
    AllocateHashTables();
    ClearAllHashTables();
    EXPECT_FALSE(StoresAndFinds());
    FreeHashTables();
    ClearAllHashTables();
    EXPECT_FALSE(StoresAndFinds());
}

TEST_F(HashMemoryTest, ASizeThatCannotBeHadLeavesTheOldOneWhereItMay) {
    OldTablesStay = true;
    const char* const text = "An error occured while memory allocation!\n";
    EXPECT_EQ(Printed([] { ResizeHash(-1); }), text);
    EXPECT_EQ(Printed([] { ResizePawnHash(3000); }), text);
    EXPECT_EQ(TranspositionCount, DEFAULT_TRANSPOSITION_ENTRIES);
    EXPECT_EQ(PawnHashCount, DEFAULT_PAWN_ENTRIES);
    EXPECT_TRUE(StoresAndFinds());
    EXPECT_TRUE(StoresAndFindsPawns());
}

using HashMemoryDeathTest = HashMemoryTest;

TEST_F(HashMemoryDeathTest, ShortMemoryEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const char* text = "An error occured while memory allocation!\n";
    const auto exits = testing::ExitedWithCode(1);
    EXPECT_EXIT((ShowOutput(), ResizeHash(2048)), exits, text);
    EXPECT_EXIT((ShowOutput(), ResizeHash(-1)), exits, text);
    EXPECT_EXIT((ShowOutput(), ResizePawnHash(3000)), exits, text);
    EXPECT_EXIT((ShowOutput(), TranspositionCount = -5, AllocateHashTables()), exits, text);
    EXPECT_EXIT((ShowOutput(), PawnHashCount = -5, AllocateHashTables()), exits, text);
}
