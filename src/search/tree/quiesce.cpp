#include "search/tree/quiesce.h"

#include <algorithm>
#include <cassert>

#include "board/attackers.h"
#include "board/exchange.h"
#include "board/moves/evasions.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/moves/pseudo_legal.h"
#include "board/moves/quiet_checks.h"
#include "board/position.h"
#include "eval/eval_cache.h"
#include "eval/figures.h"
#include "search/fetch_ahead.h"
#include "search/poll.h"
#include "search/state.h"
#include "search/transposition.h"
#include "search/tree/capture_gain.h"
#include "search/tree/draws.h"
#include "search/tree/ordering.h"

namespace {

// Hint bits of a table entry that spare an empty generation.
constexpr uint16_t HINT_NO_CHECKS = 1;
constexpr uint16_t HINT_NO_CAPTURES = 2;

// Where the line is too long, only a king that is boxed in is still checked.
constexpr int32_t QDEPTH_DEEP = -240;
// The line is too long at twice the iteration and this more, and at the latest at that ply.
constexpr int32_t LINE_ALLOWANCE = 36;
constexpr int32_t LONGEST_LINE = 90;
// No quiet checks below this depth.
constexpr int32_t QDEPTH_CHECKS = -120;
// A hash move costs half a ply, any other a whole one.
constexpr int32_t HASH_MOVE_COST = 30;
// How far below alpha the stand-pat score may lie for quiet checks, by remaining plies + 2.
constexpr int32_t CheckMargin[4] = {50, 150, 250, 700};
// The history has its own slice for nodes that stand so near to alpha, as in the main search.
constexpr int32_t SLICE_MARGIN = 100;
// A king with fewer flight squares than this is boxed in.
constexpr int BOXED_IN = 3;

// Input is polled in the main search, which comes round often enough, but for boards full of
// queens, where captures alone could go on for hours. So many nodes overdue, half a millisecond,
// the poll is made here: who plays on with a twentieth of a second has not more to lose.
constexpr int32_t POLL_OVERDUE = 1000;

// One node: what its steps share.
struct Node {
    int32_t alpha;
    int32_t beta;
    int32_t qdepth;
    PlyState& ply;
    int32_t best;
    Move bestMove;
    Move hashMove;
    uint16_t hintBits;
    int32_t standPat;
    int32_t attack; // on the enemy king, as the evaluation of this node left it
    bool checksAllowed;
};

} // namespace

static int32_t QuiesceNode(int32_t alpha, int32_t beta, int32_t qdepth);

// The best and worst that can still happen: mated at once, or mating with the next move. Returns
// true when that alone decides the node, with its value in `best`.
static bool BoundByMateDistance(Node& node) {
    const int32_t floor = std::max(Running.SearchPly - (node.ply.inCheck ? MATE : MATE - 2), -MATE);
    node.best = floor;
    if (floor > -MATE && floor > node.alpha) {
        if (floor >= node.beta)
            return true;
        node.alpha = floor;
    }
    if (node.alpha >= MATE - 1 - Running.SearchPly) {
        node.best = node.alpha;
        return true;
    }
    return false;
}

// Probes the table; returns true when the entry decides the node, with its value in `best`. Only
// null windows are cut, at any stored depth.
static bool CutByHash(Node& node) {
    const HashHit hit = HashProbe();
    node.hashMove = hit.move;
    node.hintBits = hit.hintBits;
    if (!hit.found || node.alpha + 1 < node.beta)
        return false;
    const bool cuts = (hit.bound == BOUND_UPPER && hit.score <= node.alpha) ||
                      (hit.bound == BOUND_LOWER && hit.score >= node.beta) ||
                      hit.bound == BOUND_EXACT;
    if (!cuts)
        return false;
    node.best = hit.bound == BOUND_EXACT ? MateFromHash(hit.score) : hit.score;
    node.ply.bestMove = hit.move;
    return true;
}

// Whether the enemy king has almost nowhere to go.
static bool EnemyKingBoxedIn() {
    const Colour them = ChangeSide(SideToMove);
    const Bitboard flights =
        KingAttacks[KingSquare[them]] & ~ColourBB[them] & ~Figures.attacks[SideToMove];
    return CountBits(flights) < BOXED_IN;
}

// Quiet checks near enough to the horizon where the score comes near the window or the window is
// open; further down only against a king that is boxed in, and every second time.
static bool AllowChecks(Node& node) {
    if (node.hintBits & HINT_NO_CHECKS)
        return false;
    if (node.qdepth >= QDEPTH_CHECKS) {
        const int plies = std::min(node.qdepth / ONE_PLY + 2, 3);
        if (node.standPat + CheckMargin[plies] > node.alpha || node.alpha + 1 < node.beta)
            return true;
    }
    if (!EnemyKingBoxedIn())
        return false;
    if (Running.SearchPly >= 2 && (PlyStates[Running.SearchPly - 2].flags & CHECKS_TRIED))
        return false;
    node.ply.flags = CHECKS_TRIED;
    return true;
}

// Makes the move, searches it at `qdepth` and takes it back; the ply's givesCheck must be set.
static int32_t SearchMove(const Node& node, Move move, int32_t qdepth) {
    MakeMove(move, true);
    PlyStates[Running.SearchPly + 1].inCheck = node.ply.givesCheck;
    Running.SearchPly++;
    const int32_t score = -QuiesceNode(-node.beta, -node.alpha, qdepth);
    Running.SearchPly--;
    UnmakeMove();
    return score;
}

// Takes a move's score in; true when it fails high, which has then been stored.
static bool TakeScore(Node& node, Move move, int32_t score) {
    if (score <= node.best)
        return false;
    node.best = score;
    node.bestMove = move;
    if (score <= node.alpha)
        return false;
    node.alpha = score;
    if (score < node.beta)
        return false;
    HashStoreQuiescence(move, score, BOUND_LOWER, node.hintBits);
    node.ply.bestMove = move;
    return true;
}

// True when the hash move fails high or the search was stopped.
static bool TryHashMove(Node& node) {
    const Move move = node.hashMove;
    if (move == NO_MOVE)
        return false;
    node.hashMove = NO_MOVE;
    if (!IsPseudoLegal(move))
        return false;
    node.ply.givesCheck = GivesCheck(move);
    const bool quiet = (move & CAPTURE_OR_PROMOTION) == 0;
    if (quiet && !node.ply.inCheck && (!node.checksAllowed || !node.ply.givesCheck))
        return false;
    if (!(node.ply.inCheck ? AnswersCheck(move) : IsLegalMove(move)))
        return false;
    node.hashMove = move;
    const int32_t score = SearchMove(node, move, node.qdepth - HASH_MOVE_COST);
    return Running.StopSearch || TakeScore(node, move, score);
}

// The check that led here came from a node that tries checks only because the king looked boxed
// in. Where the king has several ways out after all, or a sound reply, it led to nothing.
static bool CheckLooksHarmless(int start, int end) {
    if (Running.SearchPly < 1 || !(PlyStates[Running.SearchPly - 1].flags & CHECKS_TRIED) ||
        !IsQuiet(LastMove()))
        return false;
    int natural = 0;
    for (int i = start; i < end; i++) {
        const Move move = MoveStack[i].move;
        if (MovingPiece(move) == KING || CapturedPiece(move) != EMPTY)
            natural++;
        if (natural >= 2 || SafeExchange(move))
            return true;
    }
    return false;
}

static void CountLosingCapture(const Node& node, const ScoredMove& tried, int32_t score) {
    const bool capture = CapturedPiece(tried.move) != EMPTY;
    if (capture && !node.ply.inCheck && !node.ply.givesCheck && tried.score < SAFE_CAPTURE)
        UpdateCaptureStats(tried.move, SideToMove, score > node.alpha);
}

// Whether the move is left out before it is made. Evasions all count; in a null window a capture
// must lose nothing by exchange and, where it gives no check, be able to lift the score to alpha.
static bool IsLeftOut(Node& node, const ScoredMove& tried) {
    const Move move = tried.move;
    if (move == node.hashMove)
        return true;
    const bool closed = node.alpha + 1 >= node.beta;
    if (!node.ply.inCheck && ((closed && tried.score < SAFE_CAPTURE) || !IsLegalMove(move)))
        return true;
    FetchAhead(move);
    node.ply.givesCheck = GivesCheck(move);
    return !node.ply.inCheck && !node.ply.givesCheck && closed &&
           CaptureIsHopeless(move, node.alpha, node.standPat, node.attack);
}

// Evasions, or captures with promotions: best order score first. True when the node is decided.
static bool TryMoves(Node& node, int start, int end) {
    for (int i = start; i < end; i++) {
        PickMove(i, end);
        const ScoredMove tried = MoveStack[i];
        if (IsLeftOut(node, tried))
            continue;
        const int32_t score = SearchMove(node, tried.move, node.qdepth - ONE_PLY);
        if (Running.StopSearch)
            return true;
        CountLosingCapture(node, tried, score);
        if (TakeScore(node, tried.move, score))
            return true;
    }
    return false;
}

static bool TryEvasions(Node& node) {
    const int start = MoveStackTop;
    GenerateEvasions();
    const int end = MoveStackTop;
    bool decided = true;
    if (end == start) {
        node.best = Running.SearchPly - MATE;
    } else if (end > start + 1 && CheckLooksHarmless(start, end)) {
        node.best = node.beta;
    } else {
        if (end == start + 1)
            node.qdepth += ONE_PLY;
        decided = TryMoves(node, start, end);
    }
    MoveStackTop = start;
    return decided;
}

// Keeps of the generated promotions by a push those that lose nothing by exchange.
static void DropLosingPromotions(int start) {
    int kept = start;
    for (int i = start; i < MoveStackTop; i++) {
        if (SafeExchange(MoveStack[i].move))
            MoveStack[kept++] = MoveStack[i];
    }
    MoveStackTop = kept;
}

static bool TryCaptures(Node& node) {
    if (node.hintBits & HINT_NO_CAPTURES)
        return false;
    const int start = MoveStackTop;
    GenerateCaptures(ColourBB[ChangeSide(SideToMove)]);
    const int promotions = MoveStackTop;
    GeneratePromotionsQN();
    DropLosingPromotions(promotions);
    if (MoveStackTop == start)
        node.hintBits |= HINT_NO_CAPTURES;
    const bool decided = TryMoves(node, start, MoveStackTop);
    MoveStackTop = start;
    return decided;
}

static bool TryQuietChecks(Node& node) {
    const int start = MoveStackTop;
    GenerateQuietChecks(node.standPat + SLICE_MARGIN >= node.alpha ? 1 : 0);
    const int end = MoveStackTop;
    if (end == start)
        node.hintBits |= HINT_NO_CHECKS;
    bool decided = false;
    for (int i = start; i < end && !decided; i++) {
        PickMove(i, end);
        const Move move = MoveStack[i].move;
        if (move == node.hashMove || !IsLegalMove(move))
            continue;
        node.ply.givesCheck = true;
        const int32_t score = SearchMove(node, move, node.qdepth - ONE_PLY);
        decided = Running.StopSearch || TakeScore(node, move, score);
    }
    MoveStackTop = start;
    return decided;
}

// Stands pat unless in check; true when that fails high.
static bool StandPat(Node& node) {
    node.standPat = EvaluateCached();
    node.attack = Figures.optimism[SideToMove];
    if (node.standPat <= node.best)
        return false;
    node.best = node.standPat;
    if (node.standPat <= node.alpha)
        return false;
    node.alpha = node.standPat;
    return node.standPat >= node.beta;
}

// All the moves of a node, in stages. True when one of them decides it.
static bool TryStages(Node& node) {
    if (TryHashMove(node))
        return true;
    if (node.ply.inCheck)
        return TryEvasions(node);
    return TryCaptures(node) || (node.checksAllowed && TryQuietChecks(node));
}

static int32_t QuiesceNode(int32_t alpha, int32_t beta, int32_t qdepth) {
    assert(-MATE <= alpha && alpha < beta && beta <= MATE);
    assert(SearchPlyIsSound());
    PlyState& ply = PlyStates[Running.SearchPly];
    Node node = {alpha, beta, qdepth, ply, 0, NO_MOVE, NO_MOVE, 0, 0, 0, false};

    // 1. Count the node.
    ply.bestMove = NO_MOVE;
    Running.SelDepth = std::max(Running.SelDepth, Running.SearchPly);
    Running.NodeCount++;
    if (--Running.PollCountdown < -POLL_OVERDUE)
        Poll();
    if (Running.StopSearch)
        return 0;

    // 2. Bounds by mate distance, and draws by the rules.
    if (BoundByMateDistance(node))
        return node.best;
    if (DrawByHistory())
        return DrawValue();
    if (Running.SearchPly >= MAX_SEARCH_PLY)
        return EvaluateCached();

    // 3. Far beyond the iteration the search must come to rest.
    if (Running.SearchPly > std::min(2 * Running.IterationDepth + LINE_ALLOWANCE, LONGEST_LINE))
        node.qdepth = QDEPTH_DEEP;

    // 4. Hopelessly good material needs no evaluation.
    const int32_t lazy = LazyMaterialScore();
    if (lazy != LAZY_NONE && lazy >= beta)
        return lazy;

    // 5. The table.
    if (CutByHash(node))
        return node.best;
    ply.flags = 0;

    // 6. Stand pat, or answer the check a ply deeper.
    if (ply.inCheck) {
        node.qdepth += ONE_PLY;
    } else {
        if (StandPat(node))
            return node.best;
        node.checksAllowed = AllowChecks(node);
    }
    const int32_t alphaAfterStandPat = node.alpha;

    // 7. The moves.
    if (TryStages(node))
        return Running.StopSearch ? 0 : node.best;

    // 8. Only a score inside the window is worth storing.
    if (node.alpha > alphaAfterStandPat) {
        HashStore(0, node.bestMove, node.best, BOUND_EXACT, false, node.hintBits);
        ply.bestMove = node.bestMove;
    }
    return node.best;
}

int32_t Quiesce(int32_t alpha, int32_t beta) {
    return QuiesceNode(alpha, beta, 0);
}
