#include "eval/pawns/pawn_structure.h"

#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/term_limit.h"
#include "eval/position_walk.h"
#include "support/engine_setup.h"
#include "support/flipped.h"
#include "support/scratch.h"

namespace {

class PawnStructure : public testing::Test {
protected:
    void SetUp() override {
        SetUpEngineTables();
        SetPawnHashMemory(nullptr, 0);
        ClearPawnHash();
    }
    void TearDown() override {
        SetPawnHashMemory(nullptr, 0);
        ClearPawnHash();
        SetStartPosition();
    }

    // A cleared table of the test's own, also known by its records.
    void UseTable(int32_t slots) {
        memory.assign(size_t(slots + PAWN_SPARE_ENTRIES) * PAWN_ENTRY_BYTES, 0);
        SetPawnHashMemory(memory.data(), slots);
        ClearPawnHash();
    }

    std::vector<uint8_t> memory;
};

struct Scores {
    int32_t middlegame = 0;
    int32_t ending = 0;
};

Scores Probe() {
    Scores scores;
    PawnProbe(scores.middlegame, scores.ending);
    return scores;
}

// The pawns of a position with both kings at home.
void LoadPawns(const std::string& men) {
    LoadFen((men + " w - -").c_str());
    Probe();
}

// "acd" as a set of files.
unsigned Files(const char* letters) {
    unsigned files = 0;
    for (; *letters != 0; letters++)
        files |= 1u << (*letters - 'a');
    return files;
}

// The flags with the colours exchanged.
int FlippedFlags(int flags) {
    return (flags & 3) << 2 | (flags >> 2 & 3) | (flags & 16) << 1 | (flags & 32) >> 1;
}

std::vector<std::string> WalkedFens(int plies) {
    std::vector<std::string> fens;
    WalkPositions(plies, [&] { fens.push_back(WriteFen()); });
    return fens;
}

} // namespace

TEST_F(PawnStructure, ExchangedColoursGiveTheOppositeScoreAndTheSameFacts) {
    for (const std::string& fen : WalkedFens(150)) {
        SCOPED_TRACE(fen);
        LoadFen(fen.c_str());
        const Scores scores = Probe();
        const PawnEntry pawns = Pawns;
        LoadFen(FlippedFen().c_str());
        const Scores flipped = Probe();
        ASSERT_EQ(scores.middlegame, -flipped.middlegame);
        ASSERT_EQ(scores.ending, -flipped.ending);
        for (const Colour side : {WHITE, BLACK}) {
            EXPECT_EQ(pawns.PassedVector(side), Pawns.PassedVector(ChangeSide(side)));
            EXPECT_EQ(pawns.Files(side), Pawns.Files(ChangeSide(side)));
            EXPECT_EQ(pawns.Candidates(side), Pawns.Candidates(ChangeSide(side)));
            EXPECT_EQ(pawns.Weak(side), Pawns.Weak(ChangeSide(side)));
            EXPECT_EQ(pawns.OnlyOneRookFile(side), Pawns.OnlyOneRookFile(ChangeSide(side)));
        }
        EXPECT_EQ(pawns.white_defects_k, Pawns.black_defects_k);
        EXPECT_EQ(pawns.white_defects_q, Pawns.black_defects_q);
        EXPECT_EQ(pawns.black_defects_k, Pawns.white_defects_k);
        EXPECT_EQ(pawns.black_defects_q, Pawns.white_defects_q);
        EXPECT_EQ(FlippedFlags(pawns.flags), Pawns.flags);
    }
}

TEST_F(PawnStructure, IsTheSameWithATableOfAnySize) {
    const std::vector<std::string> fens = WalkedFens(60);
    for (const int32_t slots : {0, 1, 7, 0x40000}) {
        SCOPED_TRACE(slots);
        UseTable(slots);
        // Twice, so that the second walk finds what the first has stored.
        for (size_t i = 0; i < 2 * fens.size(); i++) {
            LoadFen(fens[i % fens.size()].c_str());
            Scores found = {1000, -1000};
            PawnProbe(found.middlegame, found.ending);
            const PawnEntry pawns = Pawns;
            PawnCompute();
            ASSERT_EQ(0, std::memcmp(&pawns, &Pawns, PAWN_ENTRY_BYTES)) << fens[i % fens.size()];
            EXPECT_EQ(1000 + Pawns.middlegame, found.middlegame);
            EXPECT_EQ(-1000 + Pawns.ending, found.ending);
        }
    }
}

TEST_F(PawnStructure, IsTakenFromHandThenFromTheTableAndElseComputed) {
    const char* const mine = "4k3/pp6/8/8/8/8/6PP/4K3 w - -";
    const char* const samePawns = "r3k3/pp6/8/8/8/2N5/6PP/5K2 b - -";
    const char* const others = "4k3/p7/8/8/8/8/7P/4K3 w - -";
    UseTable(1);
    LoadFen(mine);
    const Scores computed = Probe();
    Pawns.middlegame = 77;
    LoadFen(samePawns);
    EXPECT_EQ(77, Probe().middlegame);
    ClearPawnHash();
    EXPECT_EQ(computed.middlegame, Probe().middlegame);

    // Two records share the only slot: the later one always takes it.
    LoadFen(others);
    Probe();
    ClearPawnHash();
    LoadFen(mine);
    EXPECT_EQ(computed.middlegame, Probe().middlegame);

    // Nothing is at hand, the table has it.
    Pawns.middlegame = 78;
    StorePawns();
    Pawns.key ^= 1;
    EXPECT_EQ(78, Probe().middlegame);

    // Without a table not even what is at hand is used.
    SetPawnHashMemory(nullptr, 0);
    Pawns.middlegame = 79;
    EXPECT_EQ(computed.middlegame, Probe().middlegame);
}

TEST_F(PawnStructure, TheTablesOnlySlotHoldsTheLatestStructure) {
    UseTable(1);
    LoadPawns("4k3/pp6/8/8/8/8/6PP/4K3");
    LoadPawns("4k3/p7/8/8/8/8/7P/4K3");
    uint64_t key = 0;
    std::memcpy(&key, memory.data(), sizeof key);
    EXPECT_EQ(PawnKey, key);
}

TEST_F(PawnStructure, NoPawnsAreAStructureToo) {
    for (const int32_t slots : {0, 16}) {
        UseTable(slots);
        LoadPawns("4k3/8/8/8/8/8/8/4K3");
        EXPECT_EQ(0u, Pawns.key);
        EXPECT_GT(Pawns.white_defects_k, 0);
        EXPECT_EQ(0u, PassedPawns[WHITE] | PassedPawns[BLACK]);
    }
}

TEST_F(PawnStructure, KnowsPassedPawnsCandidatesAndWeakPawns) {
    struct Case {
        const char* name;
        const char* men;
        const char* passed[2];
        const char* candidates[2];
        const char* weak[2];
    };
    for (const Case& c : {
             Case{"start", "4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3", {"", ""}, {"", ""}, {"", ""}},
             Case{"far apart", "4k3/p7/8/8/8/8/7P/4K3", {"h", "a"}, {"", ""}, {"h", "a"}},
             Case{"side by side past each other",
                  "4k3/8/8/3P4/4p3/8/8/4K3",
                  {"d", "e"},
                  {"", ""},
                  {"d", "e"}},
             Case{"a sentry beside", "4k3/4p3/8/3P4/8/8/8/4K3", {"", ""}, {"", ""}, {"d", "e"}},
             Case{"two against one", "4k3/1p6/8/8/8/8/PP6/4K3", {"", ""}, {"a", ""}, {"", ""}},
             Case{"two against one, the helper left behind",
                  "4k3/1p6/8/8/P7/8/1P6/4K3",
                  {"", ""},
                  {"a", ""},
                  {"", ""}},
             Case{"the helper too far ahead",
                  "4k3/1p6/8/8/1P6/8/P7/4K3",
                  {"", ""},
                  {"", ""},
                  {"", ""}},
             Case{"attacked and not guarded",
                  "4k3/8/3p4/1PP5/8/8/8/4K3",
                  {"b", ""},
                  {"", ""},
                  {"", "d"}},
             Case{"attacked and guarded",
                  "4k3/8/3p4/2P5/1P6/8/8/4K3",
                  {"b", ""},
                  {"c", ""},
                  {"", "d"}},
             Case{"a doubled passed pawn", "4k3/8/8/P7/8/P7/8/4K3", {"a", ""}, {"", ""}, {"a", ""}},
             Case{
                 "blocked by an enemy pawn", "4k3/8/p7/P7/8/8/8/4K3", {"", ""}, {"", ""}, {"", ""}},
             Case{"backward on an open file",
                  "4k3/8/8/2p1p3/2P1P3/3P4/8/4K3",
                  {"", ""},
                  {"", ""},
                  {"d", ""}},
         }) {
        SCOPED_TRACE(c.name);
        LoadPawns(c.men);
        for (const Colour side : {WHITE, BLACK}) {
            SCOPED_TRACE(side);
            EXPECT_EQ(Files(c.passed[side]), Pawns.PassedVector(side));
            EXPECT_EQ(Files(c.candidates[side]), Pawns.Candidates(side));
            EXPECT_EQ(Files(c.weak[side]), Pawns.Weak(side));
        }
    }
}

TEST_F(PawnStructure, ScoresCountForBlackAndEachWeaknessOnce) {
    struct Case {
        const char* name;
        const char* men;
        int middlegame, ending;
    };
    for (const Case& c : {
             Case{"isolated and open", "4k3/8/8/8/8/8/P7/4K3", 18, 18},
             Case{"isolated, not open", "4k3/8/8/8/8/p7/P7/4K3", 0, 0},
             Case{"doubled: the one behind, which is not open", "4k3/8/8/8/8/P7/P7/4K3",
                  18 + 8 + 10, 18 + 18 + 18},
             Case{"black's count against black", "4k3/4p3/4p3/8/8/8/8/4K3", -22 - 12 - 12,
                  -22 - 22 - 20},
             // Backward on d, two connected; Black's two are isolated.
             Case{"backward", "4k3/8/8/2p1p3/2P1P3/3P4/8/4K3", 18 - 5 - 5 - 10 - 12, 12 - 20 - 22},
             Case{"backward behind an enemy pawn", "4k3/8/8/2ppp3/2P1P3/3P4/8/4K3",
                  10 - 5 - 5 + 5 + 5 + 5, 12},
             Case{"side by side", "4k3/8/8/8/8/2PP4/8/4K3", -4 - 4, 0},
             Case{"supported on the sixth and seventh", "4k3/2P5/1P6/8/8/8/8/4K3", -24, -24},
             Case{"side by side on the sixth", "4k3/8/1PP5/8/8/8/8/4K3", -16 - 16, -16 - 16},
         }) {
        SCOPED_TRACE(c.name);
        LoadPawns(c.men);
        EXPECT_EQ(c.middlegame, Pawns.middlegame);
        EXPECT_EQ(c.ending, Pawns.ending);
    }
}

TEST_F(PawnStructure, ACandidateGainsByAdvancing) {
    int last = 0;
    for (const char* men : {"4k3/1p6/8/8/8/8/PP6/4K3", "4k3/1p6/8/8/8/PP6/8/4K3",
                            "4k3/1p6/8/8/PP6/8/8/4K3", "4k3/1p6/8/PP6/8/8/8/4K3"}) {
        SCOPED_TRACE(men);
        LoadPawns(men);
        EXPECT_EQ(Files("a"), Pawns.Candidates(WHITE));
        EXPECT_LT(Pawns.ending, last);
        last = Pawns.ending;
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
             Case{"a wing gone", "4k3/ppp2ppp/8/8/8/8/PPP5/4K3", 8, 0, 0, 0},
             Case{"all gone, open to both", "4k3/8/8/8/8/8/8/4K3", 11, 11, 11, 11},
             Case{"one behind the other", "4k3/p1pp1ppp/p7/8/6P1/8/PPP2PPP/4K3", 0, 0, 0, 3},
             Case{"stormed", "4k3/ppp2p2/8/8/6pp/8/PPP2PPP/4K3", 2, 0, 4, 0},
             Case{"the storm stopped", "4k3/ppp2pp1/8/8/8/7p/PPP2PPP/4K3", 0, 0, 2, 0},
             Case{"behind the king no shield", "4k3/ppp2ppp/8/8/8/8/PPP2PP1/4K2P", 3, 0, 0, 0},
         }) {
        SCOPED_TRACE(c.name);
        LoadPawns(c.men);
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
             Case{"start", "4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3", 0},
             Case{"outside majority", "4k3/1p3ppp/8/8/8/8/PP4PP/4K3", 2},
             Case{"outside majority of the other side", "4k3/pp4pp/8/8/8/8/1P3PPP/4K3", 8},
             Case{"crippled, since nothing is open", "4k3/1p3ppp/8/8/8/1P6/1P4PP/4K3", 1},
             Case{"one each", "4k3/1p4pp/8/8/8/8/PP5P/4K3", 2 + 8},
             Case{"outside passed pawn", "4k3/5ppp/8/8/8/8/P5PP/4K3", 16},
             Case{"black's outside passed pawn", "4k3/p5pp/8/8/8/8/5PPP/4K3", 32},
             Case{"both have one", "4k3/p7/8/8/8/8/7P/4K3", 0},
             Case{"passed but near", "4k3/4p3/8/8/8/8/2P5/4K3", 0},
             Case{"no enemy pawns", "4k3/8/8/8/8/8/P6P/4K3", 0},
         }) {
        SCOPED_TRACE(c.name);
        LoadPawns(c.men);
        EXPECT_EQ(c.flags, Pawns.flags);
    }
}

TEST_F(PawnStructure, KnowsWhenAllPawnsStandOnOneRookFile) {
    struct Case {
        const char* men;
        bool white, black;
    };
    for (const Case& c : {
             Case{"4k3/7p/8/8/P7/P7/8/4K3", true, true},
             Case{"4k3/8/7p/7P/8/8/8/4K3", true, true},
             Case{"4k3/p6p/8/8/8/8/1P6/4K3", false, false},
             Case{"4k3/8/8/8/8/8/8/4K3", false, false},
         }) {
        SCOPED_TRACE(c.men);
        LoadPawns(c.men);
        EXPECT_EQ(c.white, Pawns.OnlyOneRookFile(WHITE));
        EXPECT_EQ(c.black, Pawns.OnlyOneRookFile(BLACK));
    }
}

TEST_F(PawnStructure, BearsPawnsWhereNoneCanBe) {
    LoadPawns("PPPPPPPP/pppppppp/PPPPPPPP/8/8/pppppppp/PPPPPPPP/pppppppp");
    LoadPawns("pppppppp/pppppppp/pppppppp/pppppppp/PPPPPPPP/PPPPPPPP/PPPPPPPP/PPPPPPPP");
    EXPECT_EQ(0u, PassedPawns[WHITE] | PassedPawns[BLACK]);
    LoadPawns("P3k3/8/8/8/8/8/8/4K3");
    EXPECT_EQ(0, Pawns.middlegame);
}

TEST_F(PawnStructure, AnyNumbersInTheParametersGiveALimitedScore) {
    const ScratchParameters kept;
    for (const int32_t number : {INT32_MAX, INT32_MIN}) {
        std::array<int32_t, EVAL_PARAMETER_COUNT> numbers;
        numbers.fill(number);
        Params = std::bit_cast<EvalParameters>(numbers);
        for (const char* men : {"4k3/8/8/8/8/P7/P7/4K3", "4k3/1p6/8/8/PP6/8/8/4K3"}) {
            LoadPawns(men);
            EXPECT_LE(std::abs(Pawns.middlegame), TERM_LIMIT);
            EXPECT_LE(std::abs(Pawns.ending), TERM_LIMIT);
        }
    }
}
