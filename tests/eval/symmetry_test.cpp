// Nothing in the evaluation prefers a colour or a wing, on any board.

#include <array>
#include <bit>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "eval/endings/drawish_endings.h"
#include "eval/endings/endings.h"
#include "eval/evaluate.h"
#include "eval/figures.h"
#include "eval/material/material.h"
#include "eval/parameters/personality.h"
#include "eval/pawns/passed_pawns.h"
#include "eval/pawns/passer_race.h"
#include "eval/pawns/pawn_corrections.h"
#include "eval/pawns/pawn_structure.h"
#include "eval/pieces.h"
#include "support/board_test.h"
#include "support/flipped.h"
#include "support/scratch.h"

namespace {

// Endings and drawish ones by chance, and men where none can be.
constexpr int RANDOM_BOARDS = 60000;

// Stands for the verdict on an ending that is not known.
constexpr int32_t UNKNOWN = 12345;

class Symmetry : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        int32_t* const scales[] = {&Params.OppositeBishopsScale, &Params.WrongRookPawnScale,
                                   &Params.RookEndingScale, &Params.NoPawnScale,
                                   &Params.QueenRookPawnScale};
        for (int32_t scale = 1; int32_t* const parameter : scales)
            *parameter = scale++;
    }
    void TearDown() override {
        RootSide = WHITE;
        BoardTest::TearDown();
    }
    ScratchParameters parameters;
};

// Everything that the evaluation finds, as the side to move sees it.
std::vector<int64_t> AllFindings() {
    const Colour us = SideToMove;
    const int32_t black = us == BLACK ? 1 : -1; // the sign of what counts for Black
    RootSide = us;
    std::vector<int64_t> found = {Evaluate(), Figures.current_phase, Figures.AuxScore,
                                  black * Figures.MaterialScore,
                                  EvaluateEnding().value_or(UNKNOWN)};
    PawnProbe();
    const auto [middlegame, ending] = EvaluatePassedPawns();
    for (const int32_t score : {int32_t{Pawns.middlegame}, int32_t{Pawns.ending}, middlegame,
                                ending, PawnTradeCorrection(), PawnEndingCorrection(),
                                CapUnwinnable(50 * black), CapUnwinnable(-50 * black)})
        found.push_back(black * score);
    for (const Colour side : {us, ChangeSide(us)}) {
        const bool white = side == WHITE;
        for (const int64_t fact :
             {white ? Figures.white_phase : Figures.black_phase, Figures.optimism[side],
              Figures.EndingFlag[side], Figures.shelter_penalty[side], Figures.KingAttackers[side],
              Figures.Danger[side], Figures.KingAttackScore[side], int32_t{InEnding(side)},
              int32_t{Pawns.PassedVector(side)}, int32_t{Pawns.Files(side)},
              int32_t{Pawns.Candidates(side)}, int32_t{Pawns.OnlyOneRookFile(side)},
              int32_t{Pawns.Weak(side)},
              int32_t{white ? Pawns.white_defects_k : Pawns.black_defects_k},
              int32_t{white ? Pawns.white_defects_q : Pawns.black_defects_q},
              Pawns.flags >> (white ? 0 : 2) & 3, Pawns.flags >> (white ? 4 : 5) & 1,
              UnstoppableMoves(side), DrawishScale(white ? -1 : 1)})
            found.push_back(fact);
        for (const Bitboard squares : {Figures.passed[side], Figures.attacks[side]})
            found.push_back(int64_t(us == WHITE ? squares : __builtin_bswap64(squares)));
    }
    return found;
}

void ExpectTheSameForBothColours(const std::string& fen, int quietPlies) {
    LoadFen(fen.c_str());
    FiftyCount = quietPlies;
    const std::vector<int64_t> found = AllFindings();
    LoadFen(FlippedFen(fen).c_str());
    FiftyCount = quietPlies;
    ASSERT_EQ(found, AllFindings()) << fen;
}

// Kings and a few men, half of the time beginning with a pair of one kind, pawns often at the edge;
// sometimes many, and pawns on any rank.
void SetRandomBoard(std::mt19937& random) {
    const auto below = [&](unsigned bound) { return random() % bound; };
    const auto place = [](int sq, Colour side, Piece kind) {
        if (Board[sq] == EMPTY)
            PlacePiece(sq, side, kind);
    };
    constexpr Piece kinds[] = {KNIGHT, ROOK, BISHOP, QUEEN, PAWN};
    const int king = int(below(64));
    Ply = SetupPly = CastleRights = 0;
    ClearBoard();
    place(king, WHITE, KING);
    place((king + 1 + int(below(63))) & 63, BLACK, KING);
    const unsigned men = below(50) == 0 ? below(60) : below(6);
    const Piece pair = kinds[below(5)];
    const unsigned paired = 2 * below(2);
    for (unsigned man = 0; man < men + 2; man++) {
        // One draw a line, so that every compiler draws them in this order.
        int sq = int(below(64));
        const Piece kind = man < paired ? pair : below(2) ? PAWN : kinds[below(5)];
        const auto side = Colour((man + below(4) / 3) & 1);
        const unsigned edge = below(4);
        if (kind == PAWN && edge < 2)
            sq = (sq & 56) + int(edge) * 7;
        place(sq, side, kind);
    }
    SideToMove = Colour(below(2));
}

} // namespace

TEST_F(Symmetry, NoColourIsPreferredInAnyGame) {
    std::vector<std::pair<std::string, int>> positions;
    WalkRandomGames(60, [&] { positions.emplace_back(WriteFen(), FiftyCount); });
    for (const auto& [fen, quietPlies] : positions)
        ExpectTheSameForBothColours(fen, quietPlies);
}

TEST_F(Symmetry, NoColourIsPreferredOnAnyBoard) {
    std::mt19937 random(7);
    int known = 0;
    std::array<int, 6> drawish = {};
    for (int i = 0; i < RANDOM_BOARDS && !HasFailure(); i++) {
        SetRandomBoard(random);
        const std::string fen = WriteFen();
        ExpectTheSameForBothColours(fen, 0);
        known += EvaluateEnding().value_or(UNKNOWN) != UNKNOWN;
        drawish[size_t(DrawishScale(1) & 7)]++; // 256 for none
    }
    EXPECT_GT(known, RANDOM_BOARDS / 10);
    for (const int count : drawish)
        EXPECT_GT(count, 50);
}

TEST_F(Symmetry, NoWingIsPreferred) {
    std::vector<std::string> fens;
    WalkRandomGames(30, [&] {
        CastleRights = 0;
        fens.push_back(WriteFen());
    });
    const auto terms = [] {
        Figures = {};
        PawnProbe();
        const auto [middlegame, ending] = EvaluatePassedPawns();
        const PieceTerms pieces = EvaluatePieces();
        return std::vector<int32_t>{middlegame,
                                    ending,
                                    pieces.middlegame,
                                    pieces.ending,
                                    pieces.endingOnly[WHITE],
                                    pieces.endingOnly[BLACK],
                                    Figures.Danger[WHITE],
                                    Figures.Danger[BLACK]};
    };
    for (const std::string& fen : fens) {
        LoadFen(fen.c_str());
        const std::vector<int32_t> found = terms();
        LoadFen(MirroredFen().c_str());
        ASSERT_EQ(found, terms()) << fen;
    }
}

// One number for all that is told of known and drawish endings. Who changes one of them changes it
// and says why; whose change must not and alters it has found a fault.
TEST_F(Symmetry, KnownEndingsAreJudgedAsEver) {
    std::mt19937 random(11);
    uint32_t signature = 0;
    for (int i = 0; i < RANDOM_BOARDS; i++) {
        SetRandomBoard(random);
        PawnProbe();
        for (const int32_t judged : {EvaluateEnding().value_or(UNKNOWN), DrawishScale(-1),
                                     DrawishScale(1), CapUnwinnable(50), UnstoppableMoves(WHITE)})
            signature = std::rotl(signature, 1) * 31 + uint32_t(judged);
    }
    EXPECT_EQ(3231062093u, signature);
}
