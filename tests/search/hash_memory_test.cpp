#include "search/hash_memory.h"

#include <cstring>
#include <fstream>
#include <random>
#include <unistd.h>

#include "board/moves/order_tables.h"
#include "support/search_test.h"
#include "tablebase/block_cache.h"

namespace {

class HashMemoryTest : public SearchingTest {
protected:
    void TearDown() override {
        TranspositionCount = DEFAULT_TRANSPOSITION_ENTRIES;
        PawnHashCount = DEFAULT_PAWN_ENTRIES;
        SearchingTest::TearDown();
    }
};

bool StoresAndFinds() {
    HashStore(60, NO_MOVE, 1, BOUND_EXACT, false, 0);
    return HashProbe().found;
}

bool PawnHashIsEmpty() {
    for (int i = 0; i < PawnHashSlots + PAWN_SPARE_ENTRIES; i++) {
        uint64_t key = 0;
        std::memcpy(&key, PawnHashTable + i * PAWN_ENTRY_BYTES, sizeof key);
        if (key != 1234567)
            return false;
    }
    return true;
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
        ResizePawnHash(c.megabytes);
        EXPECT_EQ(c.pawnEntries, PawnHashCount);
        EXPECT_EQ(c.pawnEntries, PawnHashSlots);
        EXPECT_TRUE(PawnHashIsEmpty());
    }
}

TEST_F(HashMemoryTest, ResizingLosesTheContentsAndStartsTheAgesAnew) {
    HashAge = 9;
    ASSERT_TRUE(StoresAndFinds());
    ResizeHash(2);
    EXPECT_FALSE(HashProbe().found);
    EXPECT_EQ(0, HashAge);
}

// Bytes of memory that this process has touched and not given back.
static size_t ResidentBytes() {
    size_t all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * size_t(sysconf(_SC_PAGESIZE));
}

TEST_F(HashMemoryTest, ResizingLeavesNoMemoryBehind) {
    constexpr size_t Slack = 16 << 20;
    std::mt19937 random(4);
    ResizeHash(10);
    ResizePawnHash(7);
    const size_t before = ResidentBytes();
    for (int i = 0; i < 30; i++) {
        ResizeHash(int32_t(random() % 121));
        ResizePawnHash(int32_t(random() % 61));
        AllocateBlockCache(int32_t(random() % 60) << 20);
    }
    ResizeHash(10);
    ResizePawnHash(7);
    FreeBlockCache();
    EXPECT_LT(ResidentBytes(), before + Slack);
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
