#include "book/book_learning.h"

#include <algorithm>
#include <cstdlib>

#include "board/moves/make_move.h"
#include "book/book.h"
#include "book/book_settings.h"

constinit bool BookLearned = false;

namespace {

// A byte of the statistics that would reach this makes room for the whole node.
constexpr int FULL = 255;
constexpr int WIN = 2; // half-points

} // namespace

static BookPoints Scaled(BookPoints points) {
    return {points.won * 2 / 3, points.lost * 2 / 3};
}

static BookPoints Credited(BookPoints points, BookResult result) {
    if (result == BOOK_DRAWN)
        return {points.won + 1, points.lost + 1};
    if (result == BOOK_WON)
        return {points.won + WIN, points.lost};
    return {points.won, points.lost + WIN};
}

// The node's entry for the move, unless it is killed; -1 for none.
static int FindEntry(const BookNode& node, Move move) {
    for (int i = 0; i < node.count; i++) {
        const BookMove& entry = node.moves[i];
        if (entry.from == From(move) && entry.to == To(move) && !entry.killed)
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
    const BookPoints sum = Credited(PointsOf(node.moves[played].statistics), result);
    if (sum.won < FULL && sum.lost < FULL) {
        node.moves[played].statistics = StatisticsOf(sum);
        WriteStatistics(node, played, played);
        return;
    }
    // All moves of the node lose a third, so that they keep their ratio to each other.
    for (int i = 0; i < node.count; i++) {
        if (!node.moves[i].killed)
            node.moves[i].statistics = StatisticsOf(Scaled(PointsOf(node.moves[i].statistics)));
    }
    node.moves[played].statistics = StatisticsOf(Scaled(sum));
    WriteStatistics(node, 0, node.count - 1);
}

bool MayLearnBook() {
    return Book.UseBookLearning && (Book.OwnBook || Book.LearnWithoutOwnBook) &&
           BookHasStatistics() && !BookLearned;
}

void TeachBookNoMore() {
    BookLearned = true;
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
    if (std::abs(score) > Book.BookLearningBound)
        LearnBook(score >= 0 ? BOOK_WON : BOOK_LOST);
}
