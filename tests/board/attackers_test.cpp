#include "board/attackers.h"

#include "support/board_test.h"

namespace {

class Attackers : public BoardTest {};

} // namespace

// Perft counts what they find; here all ways of asking give the same answer.
TEST_F(Attackers, AreThoseWhoseAttacksReachTheSquare) {
    WalkRandomGames(80, [] {
        for (int sq = 0; sq < 64; sq++) {
            for (const Colour side : {WHITE, BLACK}) {
                Bitboard attackers = 0;
                for (Bitboard men = ColourBB[side]; men;) {
                    const int from = PopLowest(men);
                    if (PieceAttacks(from, side, Board[from]) & SquareBit(sq))
                        attackers |= SquareBit(from);
                }
                ASSERT_EQ(AttackersOf(side, sq), attackers) << SquareText(sq) << WriteFen();
                ASSERT_EQ(SquareAttacked(side, sq), attackers != 0) << SquareText(sq) << WriteFen();
            }
        }
    });
}

TEST_F(Attackers, CodesThatAreNoPieceAttackNothing) {
    for (const int code : {-1, 0, 4, 8, 100})
        EXPECT_EQ(PieceAttacks(Sq("d4"), WHITE, code), 0u) << code;
}

TEST_F(Attackers, ChecksAreKnownBeforeTheMoveIsMade) {
    int checks = 0;
    const auto compare = [&] {
        const Colour them = ChangeSide(SideToMove);
        for (const Move move : PlayableMoves()) {
            const bool foretold = GivesCheck(move);
            MakeMove(move, true);
            const Bitboard checkers = AttackersOf(ChangeSide(them), KingSquare[them]);
            UnmakeMove();
            ASSERT_EQ(foretold, checkers != 0) << MoveText(move) << " in " << WriteFen();
            checks += foretold;
        }
    };
    WalkRandomGames(120, compare);
    for (const TestPosition& position : VariedPositions()) {
        LoadFen(position.fen);
        WalkTree(1, compare);
    }
    EXPECT_GT(checks, 1000);
}

TEST_F(Attackers, LegalityIsKnownBeforeTheMoveIsMade) {
    int illegal = 0;
    const auto compare = [&] {
        if (InCheck(SideToMove))
            return;
        for (const Move move : Generated(GenerateAll)) {
            const bool legal = IsLegalMove(move);
            ASSERT_EQ(legal, Playable(move)) << MoveText(move) << " in " << WriteFen();
            illegal += !legal;
        }
    };
    WalkRandomGames(120, compare);
    for (const TestPosition& position : VariedPositions()) {
        LoadFen(position.fen);
        WalkTree(1, compare);
    }
    EXPECT_GT(illegal, 1000);
}
