#include "board/attackers.h"

#include "support/board_test.h"

namespace {

class Attackers : public BoardTest {};

bool OnBoard(int file, int rank) {
    return file >= 0 && file < 8 && rank >= 0 && rank < 8;
}

// The squares that the man on `sq` attacks, found by stepping over `Board`.
Bitboard StepAttacks(int sq) {
    constexpr int queenSteps[8][2] = {{1, 0}, {-1, 0}, {0, 1},  {0, -1},
                                      {1, 1}, {1, -1}, {-1, 1}, {-1, -1}};
    constexpr int knightSteps[8][2] = {{1, 2},  {2, 1},  {-1, 2},  {-2, 1},
                                       {1, -2}, {2, -1}, {-1, -2}, {-2, -1}};
    const Piece piece = Board[sq];
    Bitboard attacks = 0;
    for (int i = 0; i < 8; i++) {
        const int* step = piece == KNIGHT ? knightSteps[i] : queenSteps[i];
        if ((piece == ROOK && i >= 4) || (piece == BISHOP && i < 4))
            continue;
        if (piece == PAWN && (i < 4 || step[1] != (ColourOn(sq) == WHITE ? 1 : -1)))
            continue;
        int file = FileOf(sq) + step[0];
        int rank = RankOf(sq) + step[1];
        while (OnBoard(file, rank)) {
            attacks |= SquareBit(rank * 8 + file);
            if (piece == KNIGHT || piece == PAWN || piece == KING ||
                Board[rank * 8 + file] != EMPTY)
                break;
            file += step[0];
            rank += step[1];
        }
    }
    return attacks;
}

void CompareWithStepping() {
    Bitboard attackers[2][64] = {};
    for (Bitboard men = Occupied(); men;) {
        const int from = PopLowest(men);
        const Bitboard attacks = StepAttacks(from);
        ASSERT_EQ(PieceAttacks(from, ColourOn(from), Board[from]), attacks)
            << SquareText(from) << " in " << WriteFen();
        for (Bitboard b = attacks; b;)
            attackers[ColourOn(from)][PopLowest(b)] |= SquareBit(from);
    }
    for (const Colour side : {WHITE, BLACK}) {
        for (int sq = 0; sq < 64; sq++) {
            ASSERT_EQ(AttackersOf(side, sq), attackers[side][sq])
                << side << " on " << SquareText(sq) << " in " << WriteFen();
            ASSERT_EQ(SquareAttacked(side, sq), attackers[side][sq] != 0)
                << side << " on " << SquareText(sq) << " in " << WriteFen();
        }
        ASSERT_EQ(InCheck(side), attackers[ChangeSide(side)][KingSquare[side]] != 0);
    }
}

} // namespace

TEST_F(Attackers, AgreeWithSteppingOverTheBoard) {
    WalkRandomGames(80, CompareWithStepping);
}

TEST_F(Attackers, CodesThatAreNoPieceAttackNothing) {
    for (const int code : {-1, 0, 4, 8, 100})
        EXPECT_EQ(PieceAttacks(Sq("d4"), WHITE, code), 0u) << code;
}

TEST_F(Attackers, ChecksAreKnownBeforeTheMoveIsMade) {
    int checks = 0;
    int discovered = 0;
    int byPromotion = 0;
    int byCastling = 0;
    int byEnPassant = 0;
    const auto compare = [&] {
        const Colour them = ChangeSide(SideToMove);
        for (const Move move : PlayableMoves()) {
            const bool foretold = GivesCheck(move);
            MakeMove(move, true);
            const Bitboard checkers = AttackersOf(ChangeSide(them), KingSquare[them]);
            UnmakeMove();
            ASSERT_EQ(foretold, checkers != 0) << MoveText(move) << " in " << WriteFen();
            checks += foretold;
            discovered += foretold && !(checkers & SquareBit(To(move)));
            byPromotion += foretold && Promotion(move) != EMPTY;
            byCastling += foretold && IsCastling(move);
            byEnPassant += foretold && IsEnPassant(move);
        }
    };
    WalkRandomGames(120, compare);
    for (const TestPosition& position : VariedPositions()) {
        LoadFen(position.fen);
        WalkTree(1, compare);
    }
    // The walks have seen every way of giving check.
    EXPECT_GT(checks, 1000);
    EXPECT_GT(discovered, 50);
    EXPECT_GT(byPromotion, 50);
    EXPECT_GT(byCastling, 5);
    EXPECT_GT(byEnPassant, 5);
}

TEST_F(Attackers, LegalityIsKnownBeforeTheMoveIsMade) {
    int illegal = 0;
    int illegalEnPassant = 0;
    int illegalKing = 0;
    const auto compare = [&] {
        if (InCheck(SideToMove))
            return;
        for (const Move move : Generated(GenerateAll)) {
            const bool legal = IsLegalMove(move);
            ASSERT_EQ(legal, Playable(move)) << MoveText(move) << " in " << WriteFen();
            illegal += !legal;
            illegalEnPassant += !legal && IsEnPassant(move);
            illegalKing += !legal && MovingPiece(move) == KING;
        }
    };
    WalkRandomGames(120, compare);
    for (const TestPosition& position : VariedPositions()) {
        LoadFen(position.fen);
        WalkTree(1, compare);
    }
    EXPECT_GT(illegal - illegalKing, 500);
    EXPECT_GT(illegalKing, 500);
    EXPECT_GT(illegalEnPassant, 1);
}
