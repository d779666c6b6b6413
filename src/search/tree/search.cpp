#include "search/tree/search.h"

#include <algorithm>
#include <cassert>

#include "board/attackers.h"
#include "board/moves/evasions.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/moves/pseudo_legal.h"
#include "board/moves/quiet_checks.h"
#include "board/position.h"
#include "book/book_settings.h"
#include "book/position_learning.h"
#include "eval/eval_cache.h"
#include "eval/figures.h"
#include "eval/parameters/personality.h"
#include "search/fetch_ahead.h"
#include "search/poll.h"
#include "search/state.h"
#include "search/transposition.h"
#include "search/tree/capture_threat.h"
#include "search/tree/draws.h"
#include "search/tree/extensions.h"
#include "search/tree/node.h"
#include "search/tree/ordering.h"
#include "search/tree/pruning.h"
#include "search/tree/quiesce.h"
#include "tablebase/tablebases.h"

namespace {

// From this quiet move on, quiet moves must first pass a shallower test.
constexpr int FIRST_LATE_QUIET = 3;
// From this many on the test may be shallower still.
constexpr int MANY_QUIETS = 9;
// An attack on the enemy king that grows by this much is not reduced.
constexpr int32_t ATTACK_GROWS = 25;
// What a hopeless quiet move may still lack, in centipawns, to be tested at one ply less.
constexpr int32_t REDUCTION_MARGIN = 120;
// Least depth at which quiet moves are reduced.
constexpr int32_t REDUCTION_DEPTH = 2 * ONE_PLY;
// Least depths at which a node without a hash move is searched one ply less deep, and two.
constexpr int32_t SHORTENING_DEPTH = 4 * ONE_PLY;
constexpr int32_t TWICE_SHORTENING_DEPTH = 8 * ONE_PLY;
// From this depth on tablebases are always probed.
constexpr int32_t PROBE_DEPTH = 4 * ONE_PLY;
// A null move asks for this many phase units (a rook and more) from this depth on: with less, a
// side may be in zugzwang, and a deep search believes what passing tells.
constexpr int NULL_MOVE_UNITS = 6;
constexpr int32_t NULL_MOVE_DEEP = 8 * ONE_PLY + 1;
// Nor is passing tried when the static evaluation lies this far below alpha, or further.
constexpr int32_t NULL_MOVE_SLACK = 20;
constexpr int32_t NULL_MOVE_SLACK_SHALLOW = 5;
// Plies by which passing shortens the search, and one more from this depth on with more units than
// these.
constexpr int32_t NULL_MOVE_PLIES = 4;
constexpr int32_t NULL_MOVE_EXTRA_DEPTH = 6 * ONE_PLY;
constexpr int NULL_MOVE_EXTRA_UNITS = 8;
// A window up to this wide still counts as closed to a null move.
constexpr int32_t NULL_MOVE_WINDOW = 2;
// The history of nodes whose alpha lies no further above the static evaluation has its own slice.
constexpr int32_t SLICE_MARGIN = 100;
// Above this depth positions that the engine has learned are remembered.
constexpr int32_t LEARNED_DEPTH = 6 * ONE_PLY;

} // namespace

// The best and worst that can still happen: mated at once, or mating with the next move. True when
// that decides the node, with its value in `best`.
static bool BoundByMateDistance(Node& node) {
    const int32_t floor = Running.SearchPly - (node.ply.inCheck ? MATE : MATE - 2);
    if (floor > -MATE && floor > node.alpha) {
        node.best = floor;
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

static bool DrawnByRule() {
    return DrawByMaterial() || DrawByHistory();
}

// Probes the table. True when the entry is deep enough and decides the node, with its value in
// `best`; otherwise it leaves the hash move and what else it knows.
static bool CutByHash(Node& node) {
    const HashHit hit = HashProbe();
    if (!hit.found)
        return false;
    node.hintBits = hit.hintBits;
    node.hashMove = hit.move;
    node.mateThreat = hit.mateThreat;
    // Where the true score is known to lie below beta, passing cannot fail high.
    if ((hit.bound & BOUND_UPPER) && hit.score < node.beta)
        node.nullAllowed = false;
    if (node.depth > hit.depth)
        return false;
    if (hit.bound == BOUND_NONE) {
        node.hashMove = NO_MOVE;
        return false;
    }
    const bool cuts = hit.bound == BOUND_EXACT ||
                      (hit.bound == BOUND_UPPER && hit.score <= node.alpha) ||
                      (hit.bound == BOUND_LOWER && hit.score >= node.beta);
    if (!cuts)
        return false;
    node.best = hit.bound == BOUND_EXACT ? MateFromHash(hit.score) : hit.score;
    node.ply.bestMove = hit.move;
    return true;
}

// Shallower nodes are not worth a look into the file of learned positions.
static bool WorthRemembering(const Node& node) {
    return Book.UseLearningData && node.depth > LEARNED_DEPTH && SideToMove == RootSide;
}

static bool IsBareKing(Colour side) {
    return PhaseUnits[side] == 0 && PieceCount[PAWN][side] == 0;
}

// Near the horizon a piece that no one promotes to is not worth the time, nor is a position against
// a bare king, which the evaluation judges well: without those, endings of five to seven men reach
// the same depth a third sooner. Reading a table costs more than the few moves that it would save.
static bool ProbesTablebase(const Node& node) {
    if (MenCount > LargestTablebase() || CastleRights != 0)
        return false;
    if (Running.SearchPly < 2 || node.depth >= PROBE_DEPTH)
        return true;
    const Piece promotion = Promotion(LastMove());
    return (promotion == EMPTY || promotion == QUEEN) && !IsBareKing(WHITE) && !IsBareKing(BLACK);
}

// The exact value, counted from here like every mate, where a table holds the position. True when
// it does, with its value in `best`.
static bool CutByTablebase(Node& node) {
    if (!ProbesTablebase(node) || ProbeTablebase(SideToMove, node.best) == 0)
        return false;
    node.best = node.best == 0 ? DrawValue() : TablebaseScoreAt(Running.SearchPly, node.best);
    HashStore(TABLEBASE_DEPTH, NO_MOVE, node.best, BOUND_EXACT, false, 0);
    Running.TablebaseHits++;
    return true;
}

// Searches the position reached by the move just made; `SearchPly` is already its ply.
static int32_t SearchChild(int32_t alpha, int32_t beta, int32_t depth) {
    return depth < ONE_PLY ? -Quiesce(-beta, -alpha) : -Search(-beta, -alpha, depth, true);
}

// Whether passing the move is worth a try.
static bool NullMoveMakesSense(const Node& node) {
    const int units = PhaseUnits[SideToMove];
    if (!node.nullAllowed || node.ply.inCheck || node.beta - node.alpha > NULL_MOVE_WINDOW)
        return false;
    if (node.alpha >= MATE_BOUND || node.beta < -MATE_BOUND + 1)
        return false;
    // With pawns alone, or little more in a deep search, passing may be better than moving.
    if (units == 0 || (units < NULL_MOVE_UNITS && node.depth >= NULL_MOVE_DEEP))
        return false;
    if (node.staticEval < node.beta)
        return false;
    const int32_t slack = node.depth >= 2 * ONE_PLY ? NULL_MOVE_SLACK : NULL_MOVE_SLACK_SHALLOW;
    return node.staticEval > node.alpha - slack && !CaptureThreatens(node.staticEval - node.beta);
}

// Deepens the search after a pass a ply at a time as long as it fails high: a refutation found
// early is cheap. The turn has already passed.
static int32_t SearchAfterPass(int32_t beta, int32_t reduced) {
    int32_t depth = (reduced % ONE_PLY + ONE_PLY) % ONE_PLY;
    for (;;) {
        const int32_t score =
            depth < ONE_PLY ? -Quiesce(-beta, 1 - beta) : -Search(-beta, 1 - beta, depth, false);
        if (Running.StopSearch || score < beta || depth + ONE_PLY > reduced)
            return score;
        depth += ONE_PLY;
    }
}

// Passes the move. True when even that fails high, which has then been stored.
static bool CutByNullMove(Node& node) {
    if (!NullMoveMakesSense(node))
        return false;
    const bool extra =
        PhaseUnits[SideToMove] > NULL_MOVE_EXTRA_UNITS && node.depth >= NULL_MOVE_EXTRA_DEPTH;
    const int32_t reduced = node.depth - (NULL_MOVE_PLIES + extra) * ONE_PLY;
    MakeNullMove();
    Running.SearchPly++;
    PlyStates[Running.SearchPly].inCheck = false;
    PlyStates[Running.SearchPly].flags = 0;
    const int32_t score = SearchAfterPass(node.beta, reduced);
    Running.SearchPly--;
    UnmakeNullMove();
    if (Running.StopSearch)
        return true;
    if (score < node.beta) {
        // Who passes is mated by the reply.
        node.mateThreat |= score == Running.SearchPly + 1 - (MATE - 1);
        return false;
    }
    node.best = node.beta;
    HashStore(node.depth, NO_MOVE, std::min(node.beta, MATE_BOUND), BOUND_LOWER, node.mateThreat,
              node.hintBits);
    return true;
}

// Where the table knows no move to begin with, the order of the moves is poor and the search costs
// most. A ply less finds that move, and the next visit searches the whole depth; far from the
// horizon and off the principal variation two do.
static void ShortenWithoutHashMove(Node& node) {
    if (node.hashMove != NO_MOVE || node.depth < SHORTENING_DEPTH)
        return;
    const bool twice = node.depth >= TWICE_SHORTENING_DEPTH && !node.openWindow;
    node.depth -= twice ? 2 * ONE_PLY : ONE_PLY;
}

// How much shallower a late quiet move is tested, in 1/60 ply; 0 when it is searched as it is.
// The move has been made.
static int32_t ReductionOf(const Node& node) {
    if (node.ply.inCheck || node.ply.givesCheck || node.mateThreat || node.depth < REDUCTION_DEPTH)
        return 0;
    if (node.quiets < FIRST_LATE_QUIET && !node.alphaRaised)
        return 0;
    const Colour mover = ChangeSide(SideToMove);
    const int32_t evaluation = -EvaluateCached();
    const int32_t growth = Figures.optimism[mover] - node.attack;
    if (growth >= ATTACK_GROWS)
        return 0;
    const bool hopeless = evaluation + 2 * Figures.optimism[mover] + REDUCTION_MARGIN < node.alpha;
    if (evaluation < node.alpha && growth < 1 && (hopeless || node.quiets >= MANY_QUIETS))
        return 2 * ONE_PLY;
    return ONE_PLY;
}

// Searches the move just made: late quiet moves must pass a test, all but the first move a null
// window.
static int32_t SearchMade(const Node& node, int32_t depth, bool extended, bool quiet) {
    if (node.searched == 0)
        return SearchChild(node.alpha, node.beta, depth);
    const int32_t reduction = quiet && !extended ? ReductionOf(node) : 0;
    if (reduction > 0) {
        const int32_t test = SearchChild(node.alpha, node.alpha + 1, depth - reduction);
        if (Running.StopSearch || test <= node.alpha)
            return test;
    }
    const int32_t score = SearchChild(node.alpha, node.alpha + 1, depth);
    if (Running.StopSearch || !node.openWindow || score <= node.alpha || score >= node.beta)
        return score;
    return SearchChild(score, node.beta, depth);
}

// The best move was quiet: it and those tried in vain before it teach the ordering.
static void LearnFromQuiet(const Node& node, Stage stage) {
    if (!IsQuiet(node.bestMove))
        return;
    if (node.ply.inCheck) {
        if (Ply > 0)
            RememberEvasion(node.bestMove);
        return;
    }
    RewardQuiet(node.bestMove, node.depth, node.slice);
    if (stage != QUIET_STAGE)
        return;
    for (int i = 0; i < std::min(node.quiets, MAX_PENALISED); i++) {
        if (node.quietMoves[i] != node.bestMove)
            PenaliseQuiet(node.quietMoves[i], node.depth, node.slice);
    }
}

// Takes a move's score in. True when it fails high: stored, learned from, decided.
static bool TakeScore(Node& node, Move move, int32_t score, Stage stage) {
    if (score <= node.best)
        return false;
    node.best = score;
    if (score <= node.alpha)
        return false;
    node.bestMove = move;
    node.alpha = score;
    node.alphaRaised = true;
    if (score < node.beta)
        return false;
    LearnFromQuiet(node, stage);
    HashStore(node.depth, move, std::min(score, MATE_BOUND), BOUND_LOWER, node.mateThreat,
              node.hintBits);
    node.ply.bestMove = move;
    return true;
}

// Tries one legal move, with its order score where it was generated. True when it decides the node
// or the search was stopped.
static bool TryMove(Node& node, Move move, Stage stage, int32_t order = 0) {
    FetchAhead(move);
    node.moves++;
    const bool quiet = IsQuiet(move);
    const bool check = GivesCheck(move);
    node.ply.givesCheck = check;
    // Whether a move is worth an extension takes longer to tell than that it is not worth a search.
    if (!check && IsHopeless(node, move, stage, order)) {
        node.best = std::max(node.best, node.alpha);
        return false;
    }
    const int32_t extension = ExtensionOf(move, check, node.openWindow);
    if (quiet) {
        if (node.quiets < MAX_PENALISED)
            node.quietMoves[node.quiets] = move;
        node.quiets++;
    }
    MakeMove(move, true);
    Running.SearchPly++;
    PlyStates[Running.SearchPly].inCheck = check;
    const int32_t score = SearchMade(node, node.depth - ONE_PLY + extension, extension > 0, quiet);
    Running.SearchPly--;
    UnmakeMove();
    node.searched++;
    return Running.StopSearch || TakeScore(node, move, score, stage);
}

static bool TryHashMove(Node& node) {
    const Move move = node.hashMove;
    if (move == NO_MOVE)
        return false;
    node.hashMove = NO_MOVE;
    if (!IsPseudoLegal(move) || !(node.ply.inCheck ? AnswersCheck(move) : IsLegalMove(move)))
        return false;
    node.hashMove = move;
    return TryMove(node, move, HASH_STAGE);
}

// Tries the moves from `start` to the top of the stack, best order score first, and clears them.
static bool TryGenerated(Node& node, int start, Stage stage) {
    const int end = MoveStackTop;
    bool decided = false;
    for (int i = start; i < end && !decided; i++) {
        PickMove(i, end);
        const Move move = MoveStack[i].move;
        if (move == node.hashMove)
            continue;
        if (stage == QUIET_STAGE && (move == node.killersTried[0] || move == node.killersTried[1]))
            continue;
        if (stage != EVASION_STAGE && !IsLegalMove(move))
            continue;
        decided = TryMove(node, move, stage, MoveStack[i].score);
    }
    MoveStackTop = start;
    return decided;
}

static bool TryCaptures(Node& node) {
    const int start = MoveStackTop;
    GenerateCaptures(ColourBB[ChangeSide(SideToMove)]);
    GeneratePromotionsQN();
    return TryGenerated(node, start, CAPTURE_STAGE);
}

static bool TryKillers(Node& node) {
    // The slots change when one of them cuts off below, so both are read first.
    const Move killers[2] = {node.ply.killers[SideToMove][0], node.ply.killers[SideToMove][1]};
    for (int i = 0; i < 2; i++) {
        const Move move = killers[i];
        if (move == NO_MOVE || move == node.hashMove || !KillerFits(move) || !IsLegalMove(move))
            continue;
        node.killersTried[i] = move;
        if (TryMove(node, move, KILLER_STAGE))
            return true;
    }
    return false;
}

static bool TryQuiets(Node& node) {
    const int start = MoveStackTop;
    if (node.futile)
        GenerateQuietChecks(node.slice);
    else
        GenerateQuiet(node.slice);
    return TryGenerated(node, start, QUIET_STAGE);
}

// All the moves of a node, in stages. True when one of them decides it or the search was stopped.
static bool TryStages(Node& node) {
    if (TryHashMove(node))
        return true;
    if (node.ply.inCheck) {
        const int start = MoveStackTop;
        GenerateEvasions();
        return TryGenerated(node, start, EVASION_STAGE);
    }
    return TryCaptures(node) || TryKillers(node) || TryQuiets(node);
}

// The value of a node without a legal move.
static int32_t NoMoveValue(const Node& node) {
    if (node.ply.inCheck)
        return Running.SearchPly - MATE;
    if (!node.futile)
        return DrawValue();
    HashStore(node.depth, NO_MOVE, node.alpha, BOUND_UPPER, node.mateThreat, node.hintBits);
    return node.alpha;
}

// Stores a node in which no move failed high and returns its value.
static int32_t FinishNode(Node& node) {
    if (!node.alphaRaised) {
        // The quiet moves that were never made cannot have reached alpha.
        if (node.futile)
            node.best = std::max(node.best, node.alpha);
        // No move was good enough, but the one that the table knew is still the likeliest to be so
        // the next time.
        HashStore(node.depth, node.hashMove, std::max(node.best, -MATE_BOUND), BOUND_UPPER,
                  node.mateThreat, node.hintBits);
        return node.best;
    }
    LearnFromQuiet(node, HASH_STAGE);
    HashStore(node.depth, node.bestMove, node.best, BOUND_EXACT, node.mateThreat, node.hintBits);
    node.ply.bestMove = node.bestMove;
    return node.best;
}

int32_t Search(int32_t alpha, int32_t beta, int32_t depth, bool nullAllowed) {
    if (Running.StopSearch)
        return 0;
    assert(-MATE <= alpha && alpha < beta && beta <= MATE && depth >= ONE_PLY);
    assert(SearchPlyIsSound());
    Node node(alpha, beta, depth, nullAllowed);
    node.ply.bestMove = NO_MOVE;
    node.ply.flags = 0;

    // 1. Count the node; no score can be better than mate with the next move, or worse than being
    //    mated now.
    Running.NodeCount++;
    if (BoundByMateDistance(node))
        return node.best;
    Running.SelDepth = std::max(Running.SelDepth, Running.SearchPly);

    // 2. Look up from the board now and then: input, node limit, clock.
    if (--Running.PollCountdown < 0) {
        Poll();
        if (Running.StopSearch)
            return 0;
    }

    // 3. Draws by the rules are draws whatever the moves.
    if (DrawnByRule())
        return DrawValue();
    if (Running.SearchPly >= MAX_SEARCH_PLY)
        return EvaluateCached();

    // 4. What is already known about the position: from the table, from tablebases. Below the root
    //    these come first, so that a mate is played out to the end whatever bounds an earlier
    //    search has left.
    const bool tablebaseFirst = Running.SearchPly < 2;
    if ((tablebaseFirst && CutByTablebase(node)) || CutByHash(node) ||
        (!tablebaseFirst && CutByTablebase(node)))
        return node.best;

    // 5. What an earlier game has taught about it.
    if (WorthRemembering(node) && LearnedEvaluation(node.depth, node.best))
        return node.best;

    // 6. How it looks without a search.
    if (!node.ply.inCheck) {
        node.staticEval = EvaluateCached();
        node.attack = Figures.optimism[SideToMove];
        node.slice = node.alpha <= node.staticEval + SLICE_MARGIN ? 1 : 0;
    }

    // 7. A side that stands above beta even after passing needs no move.
    if (CutByNullMove(node))
        return Running.StopSearch ? 0 : node.best;

    // 8. Less deep where the table has no first move.
    ShortenWithoutHashMove(node);

    // 9. The moves, stage by stage.
    node.futile = QuietMovesAreFutile(node);
    if (TryStages(node))
        return Running.StopSearch ? 0 : node.best;

    // 10. No move, or none that failed high.
    return node.moves == 0 ? NoMoveValue(node) : FinishNode(node);
}
