#include "search/tree/pruning.h"

#include <cstdlib>

#include "board/position.h"
#include "search/tree/capture_gain.h"
#include "search/tree/pruning_margins.h"

namespace {

// Quiet moves on the last ply must come this close to alpha with the gain of their own square.
constexpr int32_t LAST_PLY_MARGIN = 60;

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

// On the last ply a move that gives no check and earns no extension can be judged by what it
// brings at once.
bool IsHopeless(const Node& node, Move move, Stage stage) {
    if (stage == HASH_STAGE || stage == EVASION_STAGE || node.openWindow || node.searched == 0)
        return false;
    if (std::abs(node.alpha) >= MATE_BOUND || node.mateThreat)
        return false;
    if (!IsQuiet(move))
        return node.depth < 2 * ONE_PLY &&
               CaptureIsHopeless(move, node.alpha, node.staticEval, node.attack);
    if (node.futile)
        return true;
    return node.depth < 2 * ONE_PLY &&
           node.staticEval + LAST_PLY_MARGIN + SquareGain(move) <= node.alpha;
}
