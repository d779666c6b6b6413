#include "board/moves/evasions.h"

#include "support/board_test.h"

namespace {

class Evasions : public BoardTest {};

} // namespace

TEST_F(Evasions, RememberedReplyIsLifted) {
    LoadFen("r6k/8/8/8/8/8/8/4K3 b - -");
    Play("a8e8");
    const Move reply = MoveWord(Sq("e1"), Sq("d1"), KING);
    EvasionReply[EvasionReplyIndex(LastMove(), Sq("e1"), WHITE)] = reply;
    for (const ScoredMove& scored : Scored(GenerateEvasions))
        EXPECT_EQ(scored.score, scored.move == reply ? 10000 : 0) << MoveText(scored.move);
}

TEST_F(Evasions, AreAllLegalMovesOutOfCheck) {
    int positions = 0;
    const auto compare = [&] {
        if (!InCheck(SideToMove))
            return;
        const std::vector<Move> generated = Generated(GenerateEvasions);
        std::vector<Move> legal = generated;
        std::erase_if(legal, [](Move move) { return !Playable(move); });
        ASSERT_EQ(MovesText(Sorted(legal)), MovesText(Sorted(PlayableMoves()))) << WriteFen();
        // The header promises that the illegal ones are left out already.
        ASSERT_EQ(legal.size(), generated.size()) << WriteFen();
        positions++;
    };
    WalkRandomGames(200, compare);
    for (const TestPosition& position : VariedPositions()) {
        LoadFen(position.fen);
        const size_t width = Generated(GenerateAll).size();
        WalkTree(width > 60 ? 1 : 2, compare);
    }
    EXPECT_GT(positions, 2000);
}
