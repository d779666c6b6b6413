#include "eval/pieces.h"

#include <array>
#include <bit>
#include <string>

#include <gtest/gtest.h>

#include "eval/figures.h"
#include "support/board_test.h"
#include "support/scratch.h"

namespace {

using Parameter = int32_t EvalParameters::*;
enum Sum { MIDDLEGAME, ENDING, ENDING_ONLY };

class Pieces : public BoardTest {
    ScratchParameters parameters;
};

// The sum of the terms from White's view.
int32_t WhiteSum(Sum sum) {
    Figures = {};
    const PieceTerms terms = EvaluatePieces();
    switch (sum) {
    case MIDDLEGAME:
        return -terms.middlegame;
    case ENDING:
        return -terms.ending;
    default:
        return terms.endingOnly[WHITE] - terms.endingOnly[BLACK];
    }
}

struct Case {
    const char* name;
    Parameter parameter;
    Sum sum;
    const char* men;
    int32_t count; // how often White has it
};

using P = EvalParameters;
constexpr Case Cases[] = {
    {"rook in the corner", &P::RookMobilityMiddlegame, MIDDLEGAME, "4k3/8/8/8/8/8/8/R3K3", 3},
    {"queen in the middle", &P::QueenMobilityMiddlegame, MIDDLEGAME, "7k/8/8/8/3Q4/8/8/K7", 13},
    {"bishops count empty squares", &P::BishopMobilityEnding, ENDING, "7k/8/8/8/3B4/8/8/K7", 5},
    {"not where pawns strike", &P::KnightMobilityMiddlegame, MIDDLEGAME, "7k/3p4/8/8/3N4/8/8/K7",
     2},
    {"outpost", &P::KnightOutpostMiddlegame, MIDDLEGAME, "4k3/3p4/8/3N4/8/8/8/4K3", 1},
    {"a pawn may come", &P::KnightOutpostMiddlegame, MIDDLEGAME, "4k3/2p5/8/3N4/8/8/8/4K3", 0},
    {"that pawn has passed by", &P::KnightOutpostMiddlegame, MIDDLEGAME, "4k3/8/8/2pN4/8/8/8/4K3",
     1},
    {"too far back", &P::KnightOutpostMiddlegame, MIDDLEGAME, "4k3/8/8/8/8/3N4/8/4K3", 0},
    {"guarded outpost", &P::GuardedKnightOutpostEnding, ENDING, "4k3/8/8/3N4/4P3/8/8/4K3", 1},
    {"bishop's outpost", &P::BishopOutpostMiddlegame, MIDDLEGAME, "4k3/8/8/3B4/4P3/8/8/4K3", 1},
    {"pair", &P::BishopPairEnding, ENDING, "4k3/8/8/8/8/8/8/2B1KB2", 1},
    {"two of one colour", &P::BishopPairEnding, ENDING, "4k3/8/8/8/8/8/8/2B1K1B1", 0},
    {"pawns on both wings", &P::BishopOnBothWings, ENDING_ONLY, "4k3/7p/8/8/8/8/P7/2B1K3", 1},
    {"pawns on one", &P::BishopOnBothWings, ENDING_ONLY, "4k3/p7/8/8/8/8/P7/2B1K3", 0},
    {"pawns on its colour", &P::BadBishopMiddlegame, MIDDLEGAME, "4k3/8/8/8/3P4/4P3/PP6/2B1K3", -3},
    {"trapped", &P::TrappedBishop, ENDING, "4k3/B7/1p6/8/8/8/8/4K3", -1},
    {"free", &P::TrappedBishop, MIDDLEGAME, "4k3/B7/2p5/8/8/8/8/4K3", 0},
    {"open file", &P::RookOpenMiddlegame, MIDDLEGAME, "4k3/1p6/8/8/8/8/1P6/R3K3", 1},
    {"half-open file", &P::RookHalfOpenEnding, ENDING, "4k3/p7/8/8/8/8/1P6/R3K3", 1},
    {"closed file", &P::RookHalfOpenEnding, ENDING, "4k3/8/8/8/8/8/P7/R3K3", 0},
    {"seventh, king behind", &P::RookSeventhEnding, ENDING, "4k3/R7/8/8/8/8/8/4K3", 1},
    {"seventh, pawns to take", &P::QueenSeventhEnding, ENDING, "8/Q6p/4k3/8/8/8/8/4K3", 1},
    {"seventh, nothing there", &P::RookSeventhEnding, ENDING, "8/R7/4k3/8/8/8/8/4K3", 0},
    {"shut in", &P::ShutInRook, MIDDLEGAME, "4k3/8/8/8/8/8/6PP/5K1R", -1},
    {"the king may castle", &P::ShutInRook, MIDDLEGAME, "4k3/8/8/8/8/8/6PP/4K2R", 0},
    {"out in time", &P::ShutInRook, MIDDLEGAME, "4k3/8/8/8/8/8/6PP/4RK2", 0},
    {"pawn strikes two", &P::PawnThreatMiddlegame, MIDDLEGAME, "4k3/8/8/3n1r2/4P3/8/8/4K3", 2},
    {"minor strikes rook", &P::MinorThreatEnding, ENDING, "4k3/8/3r4/8/4N3/8/8/4K3", 1},
    {"rook strikes queen", &P::RookThreatMiddlegame, MIDDLEGAME, "q3k3/8/8/8/8/8/8/R3K3", 1},
    {"unguarded piece", &P::LoosePieceMiddlegame, MIDDLEGAME, "4k3/8/8/n7/8/8/8/R3K3", 1},
    {"guarded piece", &P::LoosePieceMiddlegame, MIDDLEGAME, "4k3/8/1p6/n7/8/8/8/R3K3", 0},
    {"the king takes pawns, too", &P::LoosePawnEnding, ENDING, "4k3/8/8/8/8/8/3p4/4K3", 1},
};

} // namespace

TEST_F(Pieces, EveryTermCountsWhatItsNameSays) {
    for (const Case& c : Cases) {
        SCOPED_TRACE(c.name);
        Params = std::bit_cast<EvalParameters>(std::array<int32_t, EVAL_PARAMETER_COUNT>{});
        Params.*c.parameter = 1;
        LoadFen((std::string(c.men) + " w K -").c_str());
        EXPECT_EQ(c.count, WhiteSum(c.sum));
    }
}

TEST_F(Pieces, TellWhatTheyAttackAndHowManyThreatenTheKing) {
    // Queen and knight near the castled king, the bishop far from it.
    LoadFen("6k1/5ppp/8/6NQ/8/8/8/B3K3 w - -");
    Figures = {};
    EvaluatePieces();
    EXPECT_EQ(3, Figures.KingAttackers[WHITE]) << "the bishop looks at g7 from afar";
    EXPECT_EQ(0, Figures.KingAttackers[BLACK]);
    EXPECT_EQ(0, Figures.Danger[BLACK]);
    EXPECT_GT(Figures.Danger[WHITE], 40);
    const Bitboard attacked = Figures.attacks[WHITE];
    EXPECT_EQ(Squares("h7 f7 g7 h4"), attacked & Squares("h7 f7 g7 h4 f1")) << "not by the king";
    LoadFen("6k1/5ppp/8/6NQ/3P4/8/8/B3K3 w - -");
    Figures = {};
    EvaluatePieces();
    EXPECT_EQ(2, Figures.KingAttackers[WHITE]) << "the bishop sees nothing any more";
}
