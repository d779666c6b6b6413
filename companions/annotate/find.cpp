#include "find.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "board/moves/make_move.h"
#include "board/moves/san.h"
#include "board/position.h"
#include "judging.h"

const char* const FIND_HEAD = "game\tline\tswing\tmove\tmissed\tsacrifices\tendgame\twhite\tblack\t"
                              "result\topening\n";

namespace {

// A win is missed by a move that leaves at most so much of chances of at least so much.
constexpr double WON = 0.9;
constexpr double NOT_WON = 0.65;

// A sacrifice: so many centipawns that are not won back after two moves of each side,
constexpr int SACRIFICED = 200;
constexpr size_t SACRIFICE_PLIES = 4;
// by who had such chances before, and lost no more than so much of them.
constexpr double SACRIFICER = 0.4;
constexpr double HELD_LOSS = 0.1;

// White's men less Black's, in centipawns, before each move and at the end.
std::vector<int> MaterialOf(const PlayedGame& game) {
    std::vector<int> balance;
    SetUpStart(game);
    for (const Move move : game.moves) {
        balance.push_back(Material[WHITE] - Material[BLACK]);
        MakeMove(move, true);
    }
    balance.push_back(Material[WHITE] - Material[BLACK]);
    SetUpStart(game);
    return balance;
}

int Sign(const AnnotatedGame& game, size_t ply) {
    return game.played.SideAt(ply) == WHITE ? 1 : -1;
}

// Of who makes the move of that ply, in the position before the move `at`.
double ChancesOfMover(const AnnotatedGame& game, size_t ply, size_t at) {
    return WinningChances(Sign(game, ply) * game.analysis[at].score);
}

size_t CountMissedWins(const AnnotatedGame& game) {
    size_t missed = 0;
    for (size_t ply = 0; ply < game.played.moves.size(); ply++) {
        const double before = ChancesOfMover(game, ply, ply);
        const double after = ChancesOfMover(game, ply, ply + 1);
        if ((before >= WON && after <= NOT_WON) || game.judgement.moves[ply].missedMate != 0)
            missed++;
    }
    return missed;
}

// What is given in one go, in moves of both sides, is one sacrifice. Where the game ends sooner,
// its end tells.
size_t CountSacrifices(const AnnotatedGame& game) {
    const std::vector<int> balance = MaterialOf(game.played);
    size_t sacrifices = 0;
    for (size_t ply = 0; ply + 2 < balance.size(); ply++) {
        const size_t end = std::min(ply + SACRIFICE_PLIES, balance.size() - 1);
        const int sign = Sign(game, ply);
        const int answered = sign * (balance[ply] - balance[ply + 2]);
        const int lost = sign * (balance[ply] - balance[end]);
        const double before = ChancesOfMover(game, ply, ply);
        if (std::min(answered, lost) < SACRIFICED || before < SACRIFICER ||
            before - ChancesOfMover(game, ply, end) > HELD_LOSS)
            continue;
        sacrifices++;
        ply = end - 1;
    }
    return sacrifices;
}

// "23...Qxb2??"
std::string MoveText(const AnnotatedGame& game, size_t ply) {
    SetUpStart(game.played);
    for (size_t i = 0; i < ply; i++)
        MakeMove(game.played.moves[i], true);
    std::string text = game.played.MoveNumber(ply) + SanText(game.played.moves[ply]) +
                       MarkText(game.judgement.moves[ply].mark);
    SetUpStart(game.played);
    return text;
}

// Nothing in it ends a column.
std::string Column(std::string_view text) {
    std::string column(text.empty() ? "?" : text);
    std::ranges::replace_if(
        column, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return "\t" + column;
}

} // namespace

std::string FindLine(const AnnotatedGame& game, size_t number, int64_t line) {
    const std::vector<MoveJudgement>& moves = game.judgement.moves;
    const auto worst = std::ranges::max_element(moves, {}, &MoveJudgement::loss);
    const bool any = worst != moves.end() && worst->loss > 0;
    const auto changed = std::ranges::count(moves, true, &MoveJudgement::tablesChanged);
    std::string text = std::to_string(number) + "\t" + std::to_string(line);
    text += "\t" + std::to_string(any ? std::lround(100 * worst->loss) : 0);
    text += any ? "\t" + MoveText(game, size_t(worst - moves.begin())) : "\t-";
    text += "\t" + std::to_string(CountMissedWins(game));
    text += "\t" + std::to_string(CountSacrifices(game)) + "\t" + std::to_string(changed);
    for (const char* tag : {"White", "Black", "Result"})
        text += Column(game.text.Tag(tag));
    text += Column(std::string(game.opening.eco) + " " + std::string(game.opening.name));
    return text + "\n";
}
