#include "search/tree/pruning.h"

#include <cstdlib>

#include "board/exchange.h"
#include "board/moves/order_tables.h"
#include "board/position.h"
#include "search/tree/capture_gain.h"
#include "search/tree/pruning_margins.h"

namespace {

// Quiet moves on the last ply must come this close to alpha with the gain of their own square.
constexpr int32_t LAST_PLY_MARGIN = 60;
// Below these depths quiet moves are left out when the static evaluation is too far below alpha,
// when so many have been tried before (and the square of the plies more), or when they lose
// material by exchange; and captures when they do.
constexpr int32_t FAR_BELOW_DEPTH = 8 * ONE_PLY;
constexpr int32_t FAR_BELOW_PER_PLY = 50;
constexpr int32_t LATE_DEPTH = 9 * ONE_PLY;
constexpr int LATE_QUIETS = 3;
constexpr int32_t LOSING_QUIET_DEPTH = 8 * ONE_PLY;
constexpr int32_t LOSING_CAPTURE_DEPTH = 6 * ONE_PLY;

} // namespace

// Users set the margins to whatever they like, so the sum is taken in 64 bits.
bool QuietMovesAreFutile(const Node& node) {
    if (node.ply.inCheck || node.openWindow || node.mateThreat ||
        std::abs(node.alpha) >= MATE_BOUND || node.depth >= 4 * ONE_PLY)
        return false;
    const int band = node.depth < 2 * ONE_PLY ? 0 : node.depth < 5 * ONE_PLY / 2 ? 1 : 2;
    const PruneBand& prune = PruneBands[band];
    const int64_t units = PhaseUnits[WHITE] + PhaseUnits[BLACK];
    return int64_t{node.staticEval} + prune.margin + prune.coefficient * units <= node.alpha;
}

// Killers are moves that did well beside this node: their own gain does not tell what they do.
static bool IsFarBelow(const Node& node, Stage stage) {
    return stage == QUIET_STAGE && node.depth < FAR_BELOW_DEPTH &&
           node.staticEval + FAR_BELOW_PER_PLY * node.depth / ONE_PLY <= node.alpha;
}

// So many quiet moves have failed already that one more is unlikely to do better.
static bool ComesTooLate(const Node& node) {
    const int plies = node.depth / ONE_PLY;
    return node.depth < LATE_DEPTH && node.quiets >= LATE_QUIETS + plies * plies;
}

static bool QuietIsHopeless(const Node& node, Move move, Stage stage) {
    if (node.futile)
        return true;
    // On the last ply a move can be judged by what it brings at once.
    if (node.depth < 2 * ONE_PLY &&
        node.staticEval + LAST_PLY_MARGIN + SquareGain(move) <= node.alpha)
        return true;
    if (node.best <= -MATE_BOUND)
        return false;
    return ComesTooLate(node) || IsFarBelow(node, stage) ||
           (node.depth < LOSING_QUIET_DEPTH && !SafeExchange(move));
}

static bool CaptureIsLeftOut(const Node& node, Move move, Stage stage, int32_t order) {
    if (node.depth < 2 * ONE_PLY &&
        CaptureIsHopeless(move, node.alpha, node.staticEval, node.attack))
        return true;
    return stage == CAPTURE_STAGE && node.depth < LOSING_CAPTURE_DEPTH && order < SAFE_CAPTURE &&
           node.best > -MATE_BOUND;
}

bool IsHopeless(const Node& node, Move move, Stage stage, int32_t order) {
    if (stage == HASH_STAGE || stage == EVASION_STAGE || node.openWindow || node.searched == 0)
        return false;
    if (std::abs(node.alpha) >= MATE_BOUND || node.mateThreat)
        return false;
    return IsQuiet(move) ? QuietIsHopeless(node, move, stage)
                         : CaptureIsLeftOut(node, move, stage, order);
}
