#include "judgement.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <tuple>

namespace {

using Moves = std::span<MoveCount>; // of one position

} // namespace

uint16_t StatisticsWord(uint64_t won, uint64_t lost, int most) {
    const uint64_t larger = std::max(won, lost);
    if (larger > uint64_t(most)) {
        // The larger one becomes `most`; the smaller is rounded, which may well give 0.
        won = (won * uint64_t(most) + larger / 2) / larger;
        lost = (lost * uint64_t(most) + larger / 2) / larger;
    }
    return uint16_t(won | lost << 8);
}

static void AddPriorPoints(MoveCount& move, const JudgementRules& rules) {
    if (move.score == NO_SCORE)
        return;
    const double expectation = 1 / (1 + std::pow(10.0, -double(move.score) / rules.tenToOne));
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

static bool SearchedAsBad(const MoveCount& move, int best, const JudgementRules& rules) {
    if (move.score == NO_SCORE)
        return !rules.keepUnknown;
    return move.score < rules.worstScore ||
           (move.score < rules.badScore && best - move.score > rules.worstLoss);
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

static uint64_t GamesOf(Moves moves) {
    uint64_t games = 0;
    for (const MoveCount& move : moves)
        games += move.games;
    return games;
}

static void JudgePosition(Moves moves, const SearchedPositions& searched,
                          const JudgementRules& rules, std::vector<BookEntry>& entries) {
    const uint64_t games = GamesOf(moves);
    if (TooFew(games, rules.minPositionGames))
        return;
    const int best = BestScore(moves, searched);
    for (MoveCount& move : moves) {
        AddPriorPoints(move, rules);
        if (!searched.All().empty() && SearchedAsBad(move, best, rules))
            move.killed = 1;
        if (ScoresTooLittle(move, rules) || RarelyPlayed(move, games, rules))
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
