#include "board/moves/legal_moves.h"

#include "board/moves/pseudo_legal.h"
#include "support/board_test.h"

namespace {

class LegalMoves : public BoardTest {};

} // namespace

TEST_F(LegalMoves, AreThosePlayedWithoutLosingTheKing) {
    WalkRandomGames(80, [] {
        const std::string before = WriteFen();
        MoveStackTop = 17;
        const std::vector<Move> legal = Generated([] {
            const int start = MoveStackTop;
            const int count = GenerateLegalMoves();
            ASSERT_EQ(count, MoveStackTop - start);
        });
        ASSERT_EQ(MovesText(legal), MovesText(PlayableMoves())) << before;
        for (const Move move : Generated(GenerateAll)) {
            const bool isLegal = std::find(legal.begin(), legal.end(), move) != legal.end();
            ASSERT_EQ(IsLegal(move), isLegal) << MoveText(move) << " in " << before;
        }
        ASSERT_EQ(MoveStackTop, 17);
        ASSERT_EQ(WriteFen(), before);
    });
}

TEST_F(LegalMoves, LeaveOutCapturesOfAKing) {
    LoadFen("4k3/8/8/8/8/8/4R3/4K3 w - -");
    EXPECT_NE(FindMove("e2e8"), NO_MOVE);
    EXPECT_FALSE(IsLegal(FindMove("e2e8")));
}

// What comes out of a hash table may be any word.
TEST_F(LegalMoves, AnyWordIsPseudoLegalExactlyWhenItIsGenerated) {
    int index = 0;
    for (const TestPosition& position : VariedPositions()) {
        SCOPED_TRACE(position.name);
        LoadFen(position.fen);
        const std::vector<Move> generated = Sorted(Generated(GenerateAll));
        // All words in every fourth position; elsewhere one in 64.
        const Move stride = index % 4 == 0 ? 1 : 61;
        for (Move word = Move(index++) % 61 % stride; word <= MOVE_MASK; word += stride) {
            if (IsPseudoLegal(word) &&
                !std::binary_search(generated.begin(), generated.end(), word)) {
                ADD_FAILURE() << MoveText(word) << " (" << word << ") was not generated";
                return;
            }
        }
        for (const Move move : generated)
            EXPECT_TRUE(IsPseudoLegal(move)) << MoveText(move);
    }
}

TEST_F(LegalMoves, MovesOfOtherPositionsArePseudoLegalOnlyWhereTheyAreGenerated) {
    std::vector<Move> seen;
    WalkRandomGames(60, [&seen] {
        const std::vector<Move> generated = Sorted(Generated(GenerateAll));
        for (const Move move : seen) {
            ASSERT_EQ(IsPseudoLegal(move),
                      std::binary_search(generated.begin(), generated.end(), move))
                << MoveText(move) << " in " << WriteFen();
        }
        seen.insert(seen.end(), generated.begin(), generated.end());
        if (seen.size() > 400)
            seen.erase(seen.begin(), seen.end() - 400);
    });
}
