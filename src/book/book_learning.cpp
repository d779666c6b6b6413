#include "book/book_learning.h"

#include <algorithm>
#include <cstdlib>

#include "board/make_move.h"
#include "book/book.h"
#include "book/book_settings.h"

constinit bool BookLearned = false;

namespace {

// A byte of the statistics that would reach this makes room for the whole node.
constexpr int FULL = 255;
constexpr int WIN = 2; // half-points

struct Statistics {
    int won;
    int lost;
};

} // namespace

static Statistics Split(uint16_t word) {
    return {word & 255, word >> 8};
}

static uint16_t Join(Statistics statistics) {
    return uint16_t(statistics.won | statistics.lost << 8);
}

static Statistics Scaled(Statistics statistics) {
    return {statistics.won * 2 / 3, statistics.lost * 2 / 3};
}

static Statistics Credited(Statistics statistics, BookResult result) {
    if (result == BOOK_DRAWN)
        return {statistics.won + 1, statistics.lost + 1};
    if (result == BOOK_WON)
        return {statistics.won + WIN, statistics.lost};
    return {statistics.won, statistics.lost + WIN};
}

// The node's entry for the move, unless it is killed; -1 for none.
static int FindEntry(const BookNode& node, Move move) {
    for (int i = 0; i < node.count; i++) {
        const BookMove& entry = node.moves[i];
        if (entry.from == From(move) && entry.to == To(move) && !entry.Killed())
            return i;
    }
    return -1;
}

// Credits the move that was played from the position on the board.
static void CreditMove(Move move, BookResult result) {
    BookNode node;
    if (!FindPosition(node))
        return;
    const int played = FindEntry(node, move);
    if (played < 0)
        return;
    const Statistics sum = Credited(Split(node.moves[played].statistics), result);
    if (sum.won < FULL && sum.lost < FULL) {
        node.moves[played].statistics = Join(sum);
        WriteStatistics(node, played, played);
        return;
    }
    // All moves of the node lose a third, so that they keep their ratio to each other.
    for (int i = 0; i < node.count; i++) {
        if (!node.moves[i].Killed())
            node.moves[i].statistics = Join(Scaled(Split(node.moves[i].statistics)));
    }
    node.moves[played].statistics = Join(Scaled(sum));
    WriteStatistics(node, 0, node.count - 1);
}

bool MayLearnBook() {
    return UseBookLearning && BookOpen && !BookIsVersion0 && !BookLearned;
}

static void CreditMovesOfGame(BookResult result) {
    const int end = Ply;
    while (Ply - 2 >= SetupPly) {
        UnmakeMove();
        UnmakeMove();
        CreditMove(UndoStack[Ply].move, result);
    }
    while (Ply < end)
        MakeMove(UndoStack[Ply].move, true);
}

// A book that another engine keeps locked misses this game; two updates at once would lose either.
void LearnBook(BookResult result) {
    if (!MayLearnBook())
        return;
    if (LockBook()) {
        CreditMovesOfGame(result);
        UnlockBook();
    }
    BookLearned = true;
}

void LearnBookFromScore(int32_t score) {
    if (std::abs(score) > BookLearningBound)
        LearnBook(score >= 0 ? BOOK_WON : BOOK_LOST);
}
