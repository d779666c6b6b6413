#include "book/book_choice.h"

#include <algorithm>
#include <cstdio>

#include "board/moves/legal_moves.h"
#include "board/position.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "platform/runtime_rand.h"

namespace {

// Scores are thousandths of the points that were to be had; one that no game has been counted for
// has half of them.
constexpr int WHOLE_SCORE = 1000;
constexpr int UNKNOWN_SCORE = WHOLE_SCORE / 2;
// More games than any move can have.
constexpr int MANY_GAMES = 32700;
constexpr int LAST_RANK = 7;

struct Candidate {
    Move move;
    BookPoints points;
    bool killed;

    int Score() const {
        return points.Games() == 0 ? UNKNOWN_SCORE : points.won * WHOLE_SCORE / points.Games();
    }
};

// The entries of the node that are legal on the board, killed ones as well.
struct Candidates {
    int count = 0;
    Candidate entries[BOOK_MAX_MOVES];

    const Candidate* begin() const {
        return entries;
    }
    const Candidate* end() const {
        return entries + count;
    }
};

} // namespace

// The entry as a move; NO_MOVE when it is none here. The book's keys know nothing of castling
// rights, and a damaged book may hold anything.
static Move LegalMove(const BookMove& entry) {
    if (entry.from > 63 || entry.to > 63 || Board[entry.from] == EMPTY)
        return NO_MOVE;
    const Piece piece = Board[entry.from];
    const bool promotes = piece == PAWN && RelativeRank(SideToMove, entry.to) == LAST_RANK;
    const Move move =
        MoveWord(entry.from, entry.to, piece, Board[entry.to], promotes ? QUEEN : EMPTY);
    return IsLegal(move) ? move : NO_MOVE;
}

static Candidates FindCandidates() {
    Candidates found;
    BookNode node;
    if (!FindPosition(node))
        return found;
    for (int i = 0; i < node.count; i++) {
        if (const Move move = LegalMove(node.moves[i]); move != NO_MOVE)
            found.entries[found.count++] = {move, PointsOf(node.moves[i].statistics),
                                            node.moves[i].killed};
    }
    return found;
}

// One of the candidates that pass the test, each as likely as the other.
template <typename Test> static Move AnyOf(const Candidates& candidates, Test passes) {
    const auto eligible = std::ranges::count_if(candidates, passes);
    if (eligible == 0)
        return NO_MOVE;
    auto left = Rand() % eligible;
    const Candidate* chosen = candidates.begin();
    while (!passes(*chosen) || left-- > 0)
        chosen++;
    return chosen->move;
}

static bool Playable(const Candidate& candidate) {
    return !candidate.killed;
}

// The move that has been played least; of several the one that has done best, then the first.
static Move LeastPlayed(const Candidates& candidates) {
    const Candidate* chosen = nullptr;
    int games = MANY_GAMES;
    for (const Candidate& candidate : candidates) {
        if (candidate.killed || candidate.points.Games() > games)
            continue;
        if (candidate.points.Games() == games && candidate.Score() <= chosen->Score())
            continue;
        chosen = &candidate;
        games = candidate.points.Games();
    }
    return chosen != nullptr ? chosen->move : NO_MOVE;
}

// One of the moves that have done nearly as well as the best.
static Move OneOfTheBest(const Candidates& candidates) {
    int best = 0;
    for (const Candidate& candidate : candidates) {
        if (!candidate.killed)
            best = std::max(best, candidate.Score());
    }
    const int threshold = (100 - Book.VarietyOfPlay) * best / 100;
    return AnyOf(candidates,
                 [=](const Candidate& c) { return !c.killed && c.Score() >= threshold; });
}

// The book's author has put the main move first. The number drawn is thrown away: it keeps the
// sequence where other moves would have left it.
static Move FirstMove(const Candidates& candidates) {
    Rand();
    return candidates.count > 0 && !candidates.entries[0].killed ? candidates.entries[0].move
                                                                 : NO_MOVE;
}

Move ChooseBookMove() {
    const Candidates candidates = FindCandidates();
    if (std::ranges::none_of(candidates, Playable))
        return NO_MOVE;
    if (!BookHasStatistics())
        return AnyOf(candidates, Playable);
    if (Book.BookLearningMode == BOOK_DISCOVER)
        return LeastPlayed(candidates);
    return Book.UseBookWeights ? OneOfTheBest(candidates) : FirstMove(candidates);
}

static void PrintSquares(const BookMove& move) {
    std::printf("%c%c%c%c ", 'a' + FileOf(move.from), '1' + RankOf(move.from),
                'a' + FileOf(move.to), '1' + RankOf(move.to));
}

static void PrintResults(const BookMove& move) {
    const BookPoints points = PointsOf(move.statistics);
    if (move.statistics == BOOK_NO_GAMES)
        std::printf("?\n");
    else if (move.killed)
        std::printf("-\n");
    else
        std::printf("%d%% (not less than %d game(s))\n", points.won * 100 / points.Games(),
                    points.Games() / 2);
}

void ListBookMoves() {
    BookNode node;
    if (FindPosition(node)) {
        std::printf("%d moves from current pos in book:\n", node.count);
        for (int i = 0; i < node.count; i++) {
            PrintSquares(node.moves[i]);
            if (!BookHasStatistics())
                std::printf("%d\n", node.moves[i].statistics);
            else
                PrintResults(node.moves[i]);
        }
    } else {
        std::puts("No moves from current pos in book");
    }
    std::fflush(stdout);
}
