#include "judging.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "board/moves/make_move.h"
#include "board/position.h"
#include "board/score.h"
#include "companions/shared/chances.h"

namespace {

// Centipawns of who scores ten points for every one of the opponent: the curve that fits 700,000
// positions of the engine's games against itself and their results best. At 100 centipawns it is
// 61 %, at 200 71 %, at 500 91 %.
constexpr double TEN_TO_ONE = 510;

// Losses of chances from which a move is marked. In a level position they are about 55, 110 and
// 175 centipawns; five pawns ahead, 1.2, 2.1 and 3 pawns.
constexpr double DOUBTFUL_LOSS = 0.06;
constexpr double MISTAKE_LOSS = 0.12;
constexpr double BLUNDER_LOSS = 0.19;

// A move that loses nothing has an accuracy of 100 %; one that loses so much, half of it.
constexpr double HALF_ACCURACY_LOSS = 0.12;

} // namespace

double WinningChances(int score) {
    return Chances(score, TEN_TO_ONE);
}

int MovesToMate(int score) {
    return std::abs(score) > MATE_BOUND ? (MATE - std::abs(score) + 1) / 2 : 0;
}

std::string ScoreText(int score) {
    if (std::abs(score) > MATE_BOUND)
        return (score > 0 ? "#" : "#-") + std::to_string(MovesToMate(score));
    const int size = std::abs(score);
    const std::string cents = std::to_string(size % 100);
    return (score < 0 ? "-" : "") + std::to_string(size / 100) + (cents.size() == 1 ? ".0" : ".") +
           cents;
}

const char* MarkText(Mark mark) {
    constexpr const char* texts[] = {"", "?!", "?", "??"};
    return texts[int(mark)];
}

int GlyphNumber(Mark mark) {
    constexpr int glyphs[] = {0, 6, 2, 4};
    return glyphs[int(mark)];
}

static Mark MarkOf(double loss) {
    return loss >= BLUNDER_LOSS    ? Mark::BLUNDER
           : loss >= MISTAKE_LOSS  ? Mark::MISTAKE
           : loss >= DOUBTFUL_LOSS ? Mark::DOUBTFUL
                                   : Mark::NONE;
}

// 1 won, 0 drawn, -1 lost for the mover.
static int Outcome(int score) {
    return (score > MATE_BOUND ? 1 : 0) - (score < -MATE_BOUND ? 1 : 0);
}

// `sign` is 1 for White's move, -1 for Black's.
static MoveJudgement JudgeMove(const Verdict& before, const Verdict& after, Move played, int sign) {
    MoveJudgement judged;
    if (!before.line.empty() && before.line[0] == played && !before.exact)
        return judged;
    const int was = sign * before.score;
    const int is = sign * after.score;
    judged.loss = std::max(0.0, WinningChances(was) - WinningChances(is));
    if (was > MATE_BOUND && is <= MATE_BOUND)
        judged.missedMate = MovesToMate(was);
    if (was >= -MATE_BOUND && is < -MATE_BOUND)
        judged.allowedMate = std::max(MovesToMate(is), 1);
    judged.tablesChanged = before.exact && after.exact && Outcome(was) != Outcome(is);
    judged.mark = MarkOf(judged.loss);
    // Where the game stays won, a mate that was let go is still worth a word.
    if (judged.missedMate != 0)
        judged.mark = std::max(judged.mark, Mark::DOUBTFUL);
    return judged;
}

static double Accuracy(double loss) {
    return 100 * std::exp2(-loss / HALF_ACCURACY_LOSS);
}

static void SetAccuracy(GameJudgement& judgement, const PlayedGame& game) {
    std::array<double, 2> sum = {};
    std::array<int, 2> count = {};
    for (size_t i = 0; i < judgement.moves.size(); i++) {
        sum[game.SideAt(i)] += Accuracy(judgement.moves[i].loss);
        count[game.SideAt(i)]++;
    }
    for (const Colour side : {WHITE, BLACK}) {
        if (count[side] > 0)
            judgement.accuracy[side] = sum[side] / count[side];
    }
}

static void SetTurningPoint(GameJudgement& judgement, const PlayedGame& game,
                            std::string_view result) {
    double most = 0;
    for (size_t i = 0; i < judgement.moves.size(); i++) {
        const MoveJudgement& move = judgement.moves[i];
        const bool won = result == (game.SideAt(i) == WHITE ? "1-0" : "0-1");
        if (won || move.loss <= most || move.mark == Mark::NONE)
            continue;
        most = move.loss;
        judgement.turningPoint = i;
    }
}

// The middlegame begins behind the book, the ending when neither side has much more than two
// rooks.
static void SetPhases(GameJudgement& judgement, const PlayedGame& game, size_t bookPlies) {
    judgement.middlegame = bookPlies;
    judgement.ending = game.moves.size() + 1;
    SetUpStart(game);
    for (size_t i = 0; i <= game.moves.size(); i++) {
        constexpr int most = 2 * PiecePhaseUnits[ROOK] + PiecePhaseUnits[KNIGHT];
        if (std::max(PhaseUnits[WHITE], PhaseUnits[BLACK]) <= most) {
            judgement.ending = i;
            break;
        }
        if (i < game.moves.size())
            MakeMove(game.moves[i], true);
    }
    SetUpStart(game);
}

GameJudgement JudgeGame(const PlayedGame& game, const Analysis& analysis, size_t bookPlies,
                        std::string_view result) {
    GameJudgement judgement;
    for (size_t i = 0; i < game.moves.size(); i++) {
        const int sign = game.SideAt(i) == WHITE ? 1 : -1;
        MoveJudgement move = JudgeMove(analysis[i], analysis[i + 1], game.moves[i], sign);
        if (i < bookPlies && move.mark != Mark::BLUNDER)
            move.mark = Mark::NONE;
        judgement.moves.push_back(move);
    }
    SetAccuracy(judgement, game);
    SetTurningPoint(judgement, game, result);
    SetPhases(judgement, game, bookPlies);
    return judgement;
}
