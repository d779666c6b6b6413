#include "judgement.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <tuple>

namespace {

using Moves = std::span<MoveCount>; // of one position

// What the moves of a position are compared with.
struct Yardstick {
    uint64_t games;      // in all
    uint64_t usualGames; // a move with as many is not odd
    int best;            // score
};

} // namespace

// The statistics word for so many half-points, scaled down until neither byte holds more than
// `most`.
static uint16_t StatisticsWord(uint64_t won, uint64_t lost, int most) {
    const uint64_t larger = std::max(won, lost);
    if (larger > uint64_t(most)) {
        // The larger one becomes `most`; the smaller is rounded, which may well give 0.
        won = (won * uint64_t(most) + larger / 2) / larger;
        lost = (lost * uint64_t(most) + larger / 2) / larger;
    }
    return uint16_t(won | lost << 8);
}

// How often the move's games have to be doubled until it is a usual one; no games count as half a
// game.
static double Oddness(const MoveCount& move, const Yardstick& yardstick) {
    const double games = std::max(0.5, double(move.games));
    return std::max(0.0, std::log2(double(yardstick.usualGames) / games));
}

// The engine plays all moves alike that are nearly as good as the best. A search cannot tell a
// sound move from an odd one that it likes by chance, but those who played before can.
static void AddPriorPoints(MoveCount& move, const Yardstick& yardstick,
                           const JudgementRules& rules) {
    if (move.score == NO_SCORE)
        return;
    const double score = move.score - rules.rareDiscount * Oddness(move, yardstick);
    const double expectation = 1 / (1 + std::pow(10.0, -score / rules.tenToOne));
    const auto won = uint32_t(std::lround(rules.priorPoints * expectation));
    move.AddPoints(won, uint32_t(rules.priorPoints) - won);
}

// The best that the side to move has, as far as it was searched.
static int BestScore(Moves moves, const SearchedPositions& searched) {
    int best = searched.Score(moves[0].keys).value_or(NO_SCORE);
    for (const MoveCount& move : moves)
        best = std::max(best, int(move.score));
    return best;
}

// Many lines of a move are worth more than a search that thinks a little less of it.
static bool SearchedAsBad(const MoveCount& move, const Yardstick& yardstick,
                          const JudgementRules& rules) {
    if (move.score == NO_SCORE)
        return !rules.keepUnknown;
    const int loss = yardstick.best - move.score;
    if (move.games >= uint64_t(rules.namedGames))
        return loss > rules.namedLoss;
    return loss > rules.mostLoss || move.score < rules.worstScore ||
           (move.score < rules.badScore && loss > rules.worstLoss);
}

static bool ScoresTooLittle(const MoveCount& move, const JudgementRules& rules) {
    const uint64_t all = uint64_t{move.won} + move.lost;
    return uint64_t{move.won} * 100 < all * uint64_t(rules.minScore);
}

static bool TooFew(uint64_t games, int least) {
    return games > 0 && games < uint64_t(least);
}

// A move that only a search or another book knows has no games to be compared.
static bool RarelyPlayed(const MoveCount& move, uint64_t gamesHere, const JudgementRules& rules) {
    return move.games > 0 && uint64_t{move.games} * 100 < gamesHere * uint64_t(rules.minShare);
}

static Yardstick Measure(Moves moves, const SearchedPositions& searched,
                         const JudgementRules& rules) {
    // A move with an eighth of the most frequent one's games is usual.
    constexpr uint64_t usualShare = 8;
    uint64_t games = 0;
    uint64_t most = 0;
    for (const MoveCount& move : moves) {
        games += move.games;
        most = std::max(most, uint64_t{move.games});
    }
    const uint64_t usual = std::max(std::min(most, uint64_t(rules.namedGames)), most / usualShare);
    return {games, usual, BestScore(moves, searched)};
}

static void JudgePosition(Moves moves, const SearchedPositions& searched,
                          const JudgementRules& rules, std::vector<BookEntry>& entries) {
    const Yardstick yardstick = Measure(moves, searched, rules);
    if (TooFew(yardstick.games, rules.minPositionGames))
        return;
    for (MoveCount& move : moves) {
        AddPriorPoints(move, yardstick, rules);
        if (!searched.All().empty() && SearchedAsBad(move, yardstick, rules))
            move.killed = 1;
        if (ScoresTooLittle(move, rules) || RarelyPlayed(move, yardstick.games, rules))
            move.killed = 1;
    }
    // From the move that should be played when nothing is weighed to those that should not be.
    std::ranges::sort(moves, {}, [](const MoveCount& move) {
        return std::tuple(move.killed, ~(uint64_t{move.won} + move.lost), ~move.won, ~move.games,
                          -move.score, move.from, move.to);
    });
    for (const MoveCount& move : moves) {
        if (TooFew(move.games, rules.minGames) || (move.killed && rules.dropBad))
            continue;
        const uint16_t word =
            move.killed ? BOOK_KILLED : StatisticsWord(move.won, move.lost, rules.mostPoints);
        entries.push_back({move.keys, move.from, move.to, word});
    }
}

std::vector<BookEntry> JudgeMoves(MoveTable& table, const SearchedPositions& searched,
                                  const JudgementRules& rules) {
    std::vector<MoveCount> counts = table.TakeSorted();
    std::vector<BookEntry> entries;
    for (size_t begin = 0, end = 0; begin < counts.size(); begin = end) {
        while (end < counts.size() && counts[end].keys == counts[begin].keys)
            end++;
        JudgePosition(Moves(counts).subspan(begin, end - begin), searched, rules, entries);
    }
    return entries;
}
