#include "eval/pawns/pawn_structure.h"

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/board_test.h"
#include "support/scratch.h"

namespace {

class PawnStructure : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        SetPawnHashMemory(nullptr, 0);
        ClearPawnHash();
    }
    void TearDown() override {
        SetPawnHashMemory(nullptr, 0);
        ClearPawnHash();
        BoardTest::TearDown();
    }

    // A cleared table of the test's own, also known by its records.
    void UseTable(int32_t slots) {
        memory.assign(size_t(slots + PAWN_SPARE_ENTRIES) * PAWN_ENTRY_BYTES, 0);
        SetPawnHashMemory(memory.data(), slots);
        ClearPawnHash();
    }

    std::vector<uint8_t> memory;
};

// Finds or computes the record of the position and returns its first score.
int32_t ProbeOf(const std::string& men) {
    LoadFen((men + " w - -").c_str());
    PawnProbe();
    return Pawns.middlegame;
}

// "acd" as a set of files.
unsigned Files(const char* letters) {
    unsigned files = 0;
    for (; *letters != 0; letters++)
        files |= 1u << (*letters - 'a');
    return files;
}

} // namespace

TEST_F(PawnStructure, IsTheSameWithATableOfAnySize) {
    std::vector<std::string> fens;
    WalkRandomGames(20, [&] { fens.push_back(WriteFen()); });
    for (const int32_t slots : {0, 1, 7, 0x40000}) {
        SCOPED_TRACE(slots);
        UseTable(slots);
        // Twice, so that the second walk finds what the first has stored.
        for (size_t i = 0; i < 2 * fens.size(); i++) {
            LoadFen(fens[i % fens.size()].c_str());
            PawnProbe();
            const PawnEntry pawns = Pawns;
            SetPawnHashMemory(nullptr, 0);
            PawnProbe();
            SetPawnHashMemory(memory.data(), slots);
            ASSERT_EQ(0, std::memcmp(&pawns, &Pawns, PAWN_ENTRY_BYTES)) << fens[i % fens.size()];
        }
    }
}

TEST_F(PawnStructure, KnowsPassedPawnsCandidatesAndWeakPawns) {
    struct Case {
        const char* men;
        const char* passed[2];
        const char* candidates[2];
        const char* weak[2];
    };
    for (const Case& c : {
             Case{"4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3", {"", ""}, {"", ""}, {"", ""}},
             Case{"4k3/8/8/8/8/8/8/4K3", {"", ""}, {"", ""}, {"", ""}},
             Case{"4k3/p7/8/8/8/8/7P/4K3", {"h", "a"}, {"", ""}, {"h", "a"}},
             // Past each other, and with a sentry beside.
             Case{"4k3/8/8/3P4/4p3/8/8/4K3", {"d", "e"}, {"", ""}, {"d", "e"}},
             Case{"4k3/4p3/8/3P4/8/8/8/4K3", {"", ""}, {"", ""}, {"d", "e"}},
             // Two against one; the helper behind, and too far ahead.
             Case{"4k3/1p6/8/8/8/8/PP6/4K3", {"", ""}, {"a", ""}, {"", ""}},
             Case{"4k3/1p6/8/8/P7/8/1P6/4K3", {"", ""}, {"a", ""}, {"", ""}},
             Case{"4k3/1p6/8/8/1P6/8/P7/4K3", {"", ""}, {"", ""}, {"", ""}},
             // Attacked, and not guarded or guarded.
             Case{"4k3/8/3p4/1PP5/8/8/8/4K3", {"b", ""}, {"", ""}, {"", "d"}},
             Case{"4k3/8/3p4/2P5/1P6/8/8/4K3", {"b", ""}, {"c", ""}, {"", "d"}},
             // Doubled, blocked, backward on an open file.
             Case{"4k3/8/8/P7/8/P7/8/4K3", {"a", ""}, {"", ""}, {"a", ""}},
             Case{"4k3/8/p7/P7/8/8/8/4K3", {"", ""}, {"", ""}, {"", ""}},
             Case{"4k3/8/8/2p1p3/2P1P3/3P4/8/4K3", {"", ""}, {"", ""}, {"d", ""}},
         }) {
        SCOPED_TRACE(c.men);
        ProbeOf(c.men);
        for (const Colour side : {WHITE, BLACK}) {
            SCOPED_TRACE(side);
            EXPECT_EQ(Files(c.passed[side]), Pawns.PassedVector(side));
            EXPECT_EQ(c.passed[side][0] != 0, PassedPawns(side) != 0);
            EXPECT_EQ(Files(c.candidates[side]), Pawns.Candidates(side));
            EXPECT_EQ(Files(c.weak[side]), Pawns.Weak(side));
        }
    }
}

TEST_F(PawnStructure, ScoresCountForBlackAndEachWeaknessOnce) {
    const ScratchParameters parameters;
    Params.ConnectedMiddlegame = {0, 1, 4, 5, 9, 16, 24, 0};
    Params.GuardedPawnMiddlegame = 2;
    Params.GuardedPawnEnding = 3;
    Params.AdvanceScale = {0, 0, 10, 54, 74, 246, 320, 0};
    struct Case {
        const char* name;
        const char* men;
        int middlegame, ending;
    };
    for (const Case& c : {
             Case{"isolated and open", "4k3/8/8/8/8/8/P7/4K3", 18, 18},
             Case{"doubled: the one behind, which is not open", "4k3/8/8/8/8/P7/P7/4K3",
                  18 + 8 + 10, 18 + 18 + 18},
             Case{"black's count against black", "4k3/4p3/4p3/8/8/8/8/4K3", -22 - 12 - 12,
                  -22 - 22 - 20},
             // Backward on d, two connected; Black's two are isolated.
             Case{"backward", "4k3/8/8/2p1p3/2P1P3/3P4/8/4K3", 18 - 7 - 7 - 10 - 12,
                  12 - 3 - 3 - 20 - 22},
             Case{"backward behind an enemy pawn", "4k3/8/8/2ppp3/2P1P3/3P4/8/4K3",
                  10 - 7 - 7 + 5 + 5 + 5, 12 - 3 - 3},
             Case{"supported on the sixth and seventh", "4k3/2P5/1P6/8/8/8/8/4K3", -24 - 2,
                  -24 - 3},
             Case{"side by side on the sixth", "4k3/8/1PP5/8/8/8/8/4K3", -16 - 16, -16 - 16},
             // On the fourth rank it is at 54 of 256 between base and top; b7 is isolated.
             Case{"a candidate", "4k3/1p6/8/8/PP6/8/8/4K3", -5 - 5 - (5 + 10) - 9, -(10 + 21) - 19},
         }) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.middlegame, ProbeOf(c.men));
        EXPECT_EQ(c.ending, Pawns.ending);
    }
}

TEST_F(PawnStructure, CountsWhatIsMissingFromTheShields) {
    struct Case {
        const char* name;
        const char* men;
        int whiteKing, whiteQueen, blackKing, blackQueen; // wings
    };
    for (const Case& c : {
             Case{"start", "4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3", 0, 0, 0, 0},
             Case{"one step", "4k3/ppp2p1p/6p1/8/8/1P6/P1P2PPP/4K3", 0, 1, 1, 0},
             Case{"two steps", "4k3/ppp2pp1/8/7p/5P2/8/PPP3PP/4K3", 1, 0, 2, 0},
             Case{"a pawn gone", "4k3/ppp2ppp/8/8/8/8/PP3P1P/4K3", 3, 2, 0, 0},
             Case{"all gone, open to both", "4k3/8/8/8/8/8/8/4K3", 11, 11, 11, 11},
             Case{"one behind the other", "4k3/p1pp1ppp/p7/8/6P1/8/PPP2PPP/4K3", 0, 0, 0, 3},
             Case{"stormed", "4k3/ppp2p2/8/8/6pp/8/PPP2PPP/4K3", 2, 0, 4, 0},
             Case{"the storm stopped", "4k3/ppp2pp1/8/8/8/7p/PPP2PPP/4K3", 0, 0, 2, 0},
             Case{"behind the king no shield", "4k3/ppp2ppp/8/8/8/8/PPP2PP1/4K2P", 3, 0, 0, 0},
         }) {
        SCOPED_TRACE(c.name);
        ProbeOf(c.men);
        EXPECT_EQ(c.whiteKing, Pawns.white_defects_k);
        EXPECT_EQ(c.whiteQueen, Pawns.white_defects_q);
        EXPECT_EQ(c.blackKing, Pawns.black_defects_k);
        EXPECT_EQ(c.blackQueen, Pawns.black_defects_q);
    }
}

TEST_F(PawnStructure, FlagsWhatGainsByExchanges) {
    struct Case {
        const char* name;
        const char* men;
        int flags;
    };
    for (const Case& c : {
             Case{"outside majority", "4k3/1p3ppp/8/8/8/8/PP4PP/4K3", 2},
             Case{"crippled, since nothing is open", "4k3/1p3ppp/8/8/8/1P6/1P4PP/4K3", 1},
             Case{"one each", "4k3/1p4pp/8/8/8/8/PP5P/4K3", 2 + 8},
             Case{"most pawns stand there", "4k3/ppp4p/8/8/8/8/PPPP3P/4K3", 0},
             Case{"outside passed pawn", "4k3/5ppp/8/8/8/8/P5PP/4K3", 16},
             Case{"black's outside passed pawn", "4k3/p5pp/8/8/8/8/5PPP/4K3", 32},
             Case{"both have one", "4k3/p7/8/8/8/8/7P/4K3", 0},
             Case{"passed but near", "4k3/4p3/8/8/8/8/2P5/4K3", 0},
             Case{"no enemy pawns", "4k3/8/8/8/8/8/P6P/4K3", 0},
         }) {
        SCOPED_TRACE(c.name);
        ProbeOf(c.men);
        EXPECT_EQ(c.flags, Pawns.flags);
    }
}
