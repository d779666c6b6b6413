#include "game.h"

#include <algorithm>
#include <cstdlib>
#include <random>
#include <utility>
#include <vector>

#include "board/attackers.h"
#include "board/draw_rules.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "companions/shared/labelled_position.h"
#include "search/root.h"
#include "search/state.h"
#include "search/transposition.h"
#include "search/tree/draws.h"
#include "search/tree/driver.h"

namespace {

// Random moves behind the part of an opening line that is followed.
constexpr int LEAST_RANDOM_MOVES = 2;
constexpr int MOST_RANDOM_MOVES = 6;
// A game that begins with more, in centipawns, is decided already.
constexpr int MOST_LEAD = 150;
// About one in three beginnings is level enough.
constexpr int MOST_ATTEMPTS = 200;

// The game is won when each search of both sides has said so, in centipawns, for so many plies ...
constexpr int WON_SCORE = 1000;
constexpr int WON_PLIES = 4;
// ... drawn when nobody has had anything for so long, from that ply of the game on ...
constexpr int LEVEL_SCORE = 10;
constexpr int LEVEL_PLIES = 20;
constexpr int FIRST_LEVEL_PLY = 80;
// ... and drawn when it takes too long.
constexpr int LONGEST_GAME = 400;

using Numbers = std::mt19937_64;

// What the searches of the game say about its end.
class Referee {
public:
    // Takes in the score of a search, as White sees it. The result, or nothing.
    const char* Judge(int score) {
        const int winner = score >= WON_SCORE ? 1 : score <= -WON_SCORE ? -1 : 0;
        wonPlies = winner == 0 ? 0 : winner == leader ? wonPlies + 1 : 1;
        leader = winner;
        levelPlies = std::abs(score) <= LEVEL_SCORE ? levelPlies + 1 : 0;
        if (wonPlies >= WON_PLIES)
            return leader > 0 ? "1-0" : "0-1";
        if ((Ply >= FIRST_LEVEL_PLY && levelPlies >= LEVEL_PLIES) || Ply >= LONGEST_GAME)
            return "1/2-1/2";
        return nullptr;
    }

private:
    int leader = 0; // 1 White, -1 Black
    int wonPlies = 0;
    int levelPlies = 0;
};

struct QuietPosition {
    std::string fen;
    int score; // as White sees it
};

} // namespace

static int Below(Numbers& numbers, size_t bound) {
    return int(numbers() % uint64_t(bound));
}

// How many legal moves there are; they stand at the top of the move stack.
static int CountLegalMoves() {
    const int start = MoveStackTop;
    const int count = GenerateLegalMoves();
    MoveStackTop = start;
    return count;
}

// The best move, or NO_MOVE. Its score is that of the first root move.
static Move Search(const GameSettings& settings, int& whiteScore) {
    const Move best = SearchFixedNodes(settings.nodes);
    whiteScore = SideToMove == WHITE ? Root.moves[0].score : -Root.moves[0].score;
    return best;
}

static void MakeRandomMoves(Numbers& numbers, int count) {
    for (int i = 0; i < count; i++) {
        const int legal = CountLegalMoves();
        if (legal == 0)
            return;
        MakeMove(MoveStack[MoveStackTop + Below(numbers, size_t(legal))].move, true);
    }
}

// A part of a random line, and random moves behind it.
static void WalkIntoTheGame(Numbers& numbers, const OpeningLines& openings) {
    SetStartPosition();
    const std::vector<Move>& line = openings[size_t(Below(numbers, openings.Count()))];
    const int followed = Below(numbers, line.size() + 1);
    for (int i = 0; i < followed; i++)
        MakeMove(line[size_t(i)], true);
    MakeRandomMoves(numbers, LEAST_RANDOM_MOVES +
                                 Below(numbers, MOST_RANDOM_MOVES - LEAST_RANDOM_MOVES + 1));
}

static bool FindLevelStart(Numbers& numbers, const GameSettings& settings,
                           const OpeningLines& openings) {
    for (int i = 0; i < MOST_ATTEMPTS; i++) {
        WalkIntoTheGame(numbers, openings);
        int score = 0;
        if (Search(settings, score) != NO_MOVE && std::abs(score) <= MOST_LEAD)
            return true;
    }
    return false;
}

// The result by the rules of the game, or nothing.
static const char* ResultByRule() {
    if (CountLegalMoves() == 0) {
        if (!InCheck(SideToMove))
            return "1/2-1/2";
        return SideToMove == WHITE ? "0-1" : "1-0";
    }
    return FiftyMovesPassed() || HasRepeatedTwice() || DrawByMaterial() ? "1/2-1/2" : nullptr;
}

// Whether the position tells the static evaluation something: nothing hangs, and the search has
// weighed several moves.
static bool IsQuietPosition(Move best, int score) {
    return Root.count > 1 && IsQuiet(best) && !InCheck(SideToMove) && std::abs(score) <= MATE_BOUND;
}

// Plays on from the position on the board and collects its quiet positions. The result.
static const char* PlayOn(const GameSettings& settings, std::vector<QuietPosition>& positions) {
    Referee referee;
    std::vector<std::pair<uint64_t, Colour>> met;
    for (;;) {
        if (const char* const result = ResultByRule())
            return result;
        int score = 0;
        const Move best = Search(settings, score);
        const std::pair<uint64_t, Colour> here = {HashKey(), SideToMove};
        const bool isNew = std::ranges::find(met, here) == met.end();
        met.push_back(here);
        if (isNew && IsQuietPosition(best, score))
            positions.push_back({UsualFen(), score});
        if (const char* const result = referee.Judge(score))
            return result;
        MakeMove(best, true);
    }
}

std::string PlayGame(uint64_t seed, const GameSettings& settings, const OpeningLines& openings) {
    ClearSearchMemory(); // a game must not know of the ones before it
    Numbers numbers{seed};
    if (!FindLevelStart(numbers, settings, openings))
        return {};
    std::vector<QuietPosition> positions;
    const char* const result = PlayOn(settings, positions);
    std::string lines;
    const auto step = size_t(settings.every);
    for (size_t i = size_t(Below(numbers, step)); i < positions.size(); i += step)
        lines += LabelledLine(positions[i].fen, positions[i].score, result, seed);
    return lines;
}
