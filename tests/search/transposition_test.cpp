#include "search/transposition.h"

#include <vector>

#include <gtest/gtest.h>

#include "search/state.h"
#include "support/board_test.h"

namespace {

constexpr Move SomeMove = MoveWord(12, 28, PAWN);
constexpr Move OtherMove = MoveWord(6, 21, KNIGHT);

// A table of its own for every test, of exactly the size that it may use.
class TranspositionTest : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        UseTable(1);
    }
    void TearDown() override {
        BoardTest::TearDown();
        Running.SearchPly = 0;
        HashFilledCount = 0;
        SetTranspositionMemory(nullptr, 0);
    }
    void UseTable(int32_t count) {
        memory.assign(size_t(count + TRANSPOSITION_SPARE_ENTRIES) * TRANSPOSITION_ENTRY_BYTES, 0);
        SetTranspositionMemory(memory.data(), count);
        ClearHash();
    }

    std::vector<uint8_t> memory;
};

// Positions are told apart by their keys alone, so that a test can say which ones meet in a bucket.
// In a table of one entry all do.
void GoTo(uint64_t key) {
    PosKey = key;
}

void Store(uint64_t key, int32_t depth, uint16_t hintBits = 0) {
    GoTo(key);
    HashStore(depth, SomeMove, 10, BOUND_EXACT, false, hintBits);
}

HashHit Probe(uint64_t key) {
    GoTo(key);
    return HashProbe();
}

} // namespace

TEST_F(TranspositionTest, GivesBackWhatWasStored) {
    for (const Move move : {NO_MOVE, MoveWord(63, 63, QUEEN, QUEEN, QUEEN)}) {
        ClearHash();
        SideToMove = ChangeSide(SideToMove);
        HashStore(TABLEBASE_DEPTH, move, -345, BOUND_LOWER, move == NO_MOVE, 0x8001);
        const HashHit hit = HashProbe();
        ASSERT_TRUE(hit.found);
        EXPECT_EQ(move, hit.move);
        EXPECT_EQ(-345, hit.score);
        EXPECT_EQ(TABLEBASE_DEPTH, hit.depth);
        EXPECT_EQ(BOUND_LOWER, hit.bound);
        EXPECT_EQ(move == NO_MOVE, hit.mateThreat);
        EXPECT_EQ(0x8001, hit.hintBits);
    }
}

// Two positions fill the bucket, a third one comes.
TEST_F(TranspositionTest, AThirdPositionTakesTheSlotThatIsTheSmallerLoss) {
    struct Case {
        const char* name;
        int32_t firstDepth;
        bool firstStale;
        int32_t secondDepth;
        bool secondStale;
        int32_t depth;
        int replaced; // 0 or 1, or none of them
    };
    constexpr int none = 2;
    for (const Case& c : {
             Case{"the shallower of two current ones", 240, false, 180, false, 180, 1},
             Case{"no deeper current one", 240, false, 180, false, 179, none},
             Case{"the first of equally deep ones", 180, false, 180, false, 180, 0},
             Case{"a stale one, however deep", 6000, true, 60, false, 0, 0},
             Case{"the shallower of two stale ones", 300, true, 240, true, 0, 1},
             Case{"the first of two stale ones alike", 240, true, 240, true, 0, 0},
         }) {
        SCOPED_TRACE(c.name);
        ClearHash();
        HashAge = c.firstStale ? 4 : 5;
        Store(1, c.firstDepth);
        HashAge = c.secondStale ? 4 : 5;
        Store(2, c.secondDepth);
        HashAge = 5;
        Store(3, c.depth);
        EXPECT_EQ(c.replaced != 0, Probe(1).found);
        EXPECT_EQ(c.replaced != 1, Probe(2).found);
        EXPECT_EQ(c.replaced != none, Probe(3).found);
    }
}

TEST_F(TranspositionTest, TheSamePositionIsReplacedUnlessItWasDeeper) {
    for (const int32_t depth : {121, 120, 119}) {
        for (const uint64_t key : {1, 2}) { // in the first slot, in the second
            SCOPED_TRACE(testing::Message() << depth << " " << key);
            ClearHash();
            HashAge = 4;
            Store(1, 120, 1);
            Store(2, 120, 1);
            HashAge = 5;
            GoTo(key);
            HashStore(depth, OtherMove, 20, BOUND_LOWER, true, 2);
            const HashHit hit = HashProbe();
            ASSERT_TRUE(hit.found);
            EXPECT_EQ(depth >= 120 ? depth : 120, hit.depth);
            EXPECT_EQ(depth >= 120 ? OtherMove : SomeMove, hit.move);
            EXPECT_EQ(depth >= 120 ? BOUND_LOWER : BOUND_EXACT, hit.bound);
            EXPECT_EQ(3, hit.hintBits);
            EXPECT_EQ(1, Probe(3 - key).hintBits);
        }
    }
}

TEST_F(TranspositionTest, QuiescenceLeavesSearchedResultsAsTheyAre) {
    Store(1, 60, 1);
    Store(2, 60);
    GoTo(1);
    HashStoreQuiescence(OtherMove, 20, BOUND_LOWER, 2);
    EXPECT_EQ(SomeMove, HashProbe().move);
    EXPECT_EQ(3, HashProbe().hintBits);
    GoTo(3);
    HashStoreQuiescence(OtherMove, 20, BOUND_LOWER, 2);
    EXPECT_FALSE(HashProbe().found);

    HashAge++; // the entry of the second position grows stale, the first is refreshed
    Probe(1);
    GoTo(3);
    HashStoreQuiescence(OtherMove, 20, BOUND_LOWER, 2);
    EXPECT_EQ(OtherMove, HashProbe().move);
    EXPECT_EQ(0, HashProbe().depth);
    HashStoreQuiescence(SomeMove, 30, BOUND_UPPER, 1);
    EXPECT_EQ(SomeMove, HashProbe().move);
    EXPECT_EQ(3, HashProbe().hintBits);
}

TEST_F(TranspositionTest, MatesAreCountedFromTheNode) {
    struct Case {
        int32_t score;
        BoundType bound;
        int32_t stored; // at ply 5
        int32_t fromPly9;
    };
    for (const Case& c : {
             Case{MATE - 8, BOUND_EXACT, MATE - 3, MATE - 12},
             Case{31000, BOUND_EXACT, 31000, 31000},
             Case{31001, BOUND_EXACT, 31006, 30997},
             // Bounds say only that there is a mate.
             Case{MATE - 8, BOUND_LOWER, 31000, 31000},
             Case{8 - MATE, BOUND_LOWER, 8 - MATE, 12 - MATE},
             Case{8 - MATE, BOUND_UPPER, -31000, -31000},
             Case{-30999, BOUND_UPPER, -30999, -30999},
         }) {
        SCOPED_TRACE(testing::Message() << c.score << " " << c.bound);
        ClearHash();
        Running.SearchPly = 5;
        HashStore(60, SomeMove, c.score, c.bound, false, 0);
        Running.SearchPly = 9;
        EXPECT_EQ(c.stored, HashProbe().score);
        if (c.bound == BOUND_EXACT) {
            EXPECT_EQ(c.fromPly9, MateFromHash(HashProbe().score));
        }
    }
}

TEST_F(TranspositionTest, TheLastBucketHasTwoSlotsToo) {
    constexpr int32_t count = 7;
    UseTable(count);
    // Both keys leave the remainder 6.
    GoTo(0);
    const uint64_t castling = HashKey();
    const uint64_t first = (castling & ~uint64_t{0xffffffff}) | (7 * 1000 + 6);
    const uint64_t second = first + 7;
    Store(first ^ castling, 60);
    Store(second ^ castling, 120);
    EXPECT_EQ(60, Probe(first ^ castling).depth);
    EXPECT_EQ(120, Probe(second ^ castling).depth);
}

TEST_F(TranspositionTest, WithoutEntriesNothingIsStored) {
    UseTable(0);
    Store(1, 60);
    EXPECT_FALSE(Probe(1).found);
    EXPECT_EQ(0, HashFilledCount);
    HashFilledCount = 5;
    EXPECT_EQ(0, HashFull());
}

TEST_F(TranspositionTest, TheEnPassantFileCountsWhereAPawnStandsReady) {
    struct Case {
        const char* name;
        const char* men;
        const char* stepped; // the pawn that has just made a double step
        bool differs;
    };
    for (const Case& c : {
             Case{"beside, left", "4k3/8/8/8/3pP3/8/8/4K3 b - ", "e4", true},
             Case{"beside, right", "4k3/8/8/8/4Pp2/8/8/4K3 b - ", "e4", true},
             Case{"nobody beside", "4k3/8/8/8/4P1p1/8/8/4K3 b - ", "e4", false},
             Case{"round the right edge", "4k3/8/8/p7/7P/8/8/4K3 b - ", "h4", false},
         }) {
        SCOPED_TRACE(c.name);
        LoadFen((c.men + std::string("-")).c_str());
        const uint64_t quiet = HashKey();
        LoadFen((c.men + std::string(c.stepped)).c_str());
        ASSERT_EQ(1, Ply);
        EXPECT_EQ(c.differs, HashKey() != quiet);
        MakeNullMove();
        UnmakeNullMove();
        EXPECT_EQ(c.differs, HashKey() != quiet);
    }
}

TEST_F(TranspositionTest, CountsTheSlotsThatThisSearchFilled) {
    UseTable(1000);
    HashAge = 1;
    for (uint64_t key = 0; key < 20; key++)
        Store(key * 40, 60);
    EXPECT_EQ(20, HashFilledCount);
    EXPECT_EQ(20, HashFull());
    Store(0, 120);
    EXPECT_EQ(20, HashFilledCount);

    // What a new search finds and refreshes is not its own.
    HashAge = 2;
    HashFilledCount = 0;
    Probe(40);
    Store(40, 120);
    EXPECT_EQ(0, HashFilledCount);
}

TEST_F(TranspositionTest, ClearingEmptiesEverySlotAndSetsTheAgeBack) {
    UseTable(3);
    for (uint64_t key = 0; key < 40; key++)
        Store(key, 60);
    HashAge = 77;
    ClearHash();
    EXPECT_EQ(0, HashAge);
    for (uint64_t key = 0; key < 40; key++)
        EXPECT_FALSE(Probe(key).found) << key;
}
