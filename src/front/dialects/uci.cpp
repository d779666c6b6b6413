#include "front/dialects/uci.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "board/attackers.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/notation.h"
#include "board/position.h"
#include "front/dialects/variation.h"
#include "front/game/game.h"
#include "front/game/manners.h"
#include "front/input/reply.h"
#include "search/limits.h"
#include "search/poll.h"
#include "search/root.h"
#include "search/state.h"
#include "search/transposition.h"

namespace {

// Nodes that must have passed since the last line of a variation.
constexpr int64_t VARIATION_NODES = 30000;
// Searches that have just begun print neither several lines nor, somewhat longer, statistics.
constexpr int64_t LINES_NODES = 50000;
constexpr int64_t STATISTICS_NODES = 200000;

// Node count at the last line; a lower count now means that a new search has begun.
constinit int64_t LastLineNodes = 0;

} // namespace

// Prints a score, as a mate or in centipawns as `leader` is one.
static void PrintScore(int32_t score, int32_t leader) {
    if (leader > MATE_BOUND)
        std::printf("mate %d ", (MATE + 1 - score) >> 1);
    else if (leader < -MATE_BOUND)
        std::printf("mate -%d ", (score + MATE + 1) >> 1);
    else
        std::printf("cp %d ", score);
}

static int64_t NodesPerSecond() {
    if (Manner->fullUciLines)
        return Running.NodeCount * 1000 / std::max<int64_t>(ElapsedMilliseconds(), 1);
    const int elapsed = ElapsedTime();
    return elapsed < 1 ? 0 : Running.NodeCount * 100 / elapsed;
}

// In the classic manner the time is in hundredths, not in the thousandths of the protocol, and
// every line's score is told in the terms of the first: interfaces have long been used to it.
static int64_t PrintedTime() {
    return Manner->fullUciLines ? ElapsedMilliseconds() : ElapsedTime();
}

// Depth, score and figures of root move `index`, up to the end of "tbhits".
static void PrintInfo(int index, BoundType bound) {
    LastLineNodes = Running.NodeCount;
    // The figures stand in this line; the next line of their own can wait.
    Running.InfoCountdown = StatisticsInterval();
    std::printf("depth %d seldepth %d score ", Running.IterationDepth + 1, Running.SelDepth);
    PrintScore(Root.moves[index].score, Root.moves[Manner->fullUciLines ? index : 0].score);
    if (bound == BOUND_UPPER)
        std::printf("upperbound ");
    else if (bound == BOUND_LOWER)
        std::printf("lowerbound ");
    std::printf("nodes %" PRId64 " time %" PRId64 " hashfull %d nps %" PRId64 " tbhits %d",
                Running.NodeCount, PrintedTime(), HashFull(), NodesPerSecond(),
                Running.TablebaseHits);
}

static void PrintRootIndex() {
    std::printf(" currmove %s currmovenumber %d", MoveText(MoveBeingSearched()).c_str(),
                Root.index + 1);
}

static bool TooSoon() {
    if (Running.NodeCount < LastLineNodes)
        LastLineNodes = 0;
    return Running.NodeCount - LastLineNodes <= VARIATION_NODES;
}

void PrintUciVariation(bool forced, BoundType bound) {
    if (!forced && TooSoon())
        return;
    std::printf("info ");
    PrintInfo(0, bound);
    std::printf(" pv");
    PrintVariationMoves(0);
    std::printf("\n");
    std::fflush(stdout);
}

// A line for each of the best moves that the user wants, unless the search has just begun. The
// bound is that of root move `line` and stands in its line only.
static void PrintUciVariations(BoundType bound, int line) {
    if (Running.NodeCount > 0 && Running.NodeCount <= LINES_NODES)
        return;
    for (int i = 0; i < LineCount(); i++) {
        std::printf("info multipv %d ", i + 1);
        PrintInfo(i, i == line ? bound : BOUND_EXACT);
        PrintRootIndex();
        std::printf(" pv");
        PrintVariationMoves(i);
        std::printf("\n");
    }
    std::fflush(stdout);
}

// The line of the best move, or of each of the best, from the first node on: what has ended a short
// search is worth knowing too.
static void PrintFullLines(BoundType bound, int line) {
    for (int i = 0; i < LineCount(); i++) {
        std::printf("info multipv %d ", i + 1);
        PrintInfo(i, i == line ? bound : BOUND_EXACT);
        std::printf(" pv");
        PrintVariationMoves(i);
        std::printf("\n");
    }
    std::fflush(stdout);
}

static void PrintFinalLines() {
    if (Manner->fullUciLines)
        PrintFullLines(BOUND_EXACT, 0);
    else
        PrintUciVariation(true, BOUND_EXACT);
}

// An endless search keeps its answer to itself until it is told to end, even where there is none.
static void AnswerFinishedGame() {
    std::printf("info depth 0 score %s 0\n", InCheck(SideToMove) ? "mate" : "cp");
    std::fflush(stdout);
    HoldUntilStopped();
    PrintLine("bestmove 0000");
}

static void PrintUciCurrentMove() {
    if (TooSoon())
        return;
    std::printf("info ");
    PrintInfo(0, BOUND_EXACT);
    PrintRootIndex();
    std::printf("\n");
    std::fflush(stdout);
}

static void PrintUciStatistics() {
    if (Running.NodeCount > 0 && Running.NodeCount <= STATISTICS_NODES)
        return;
    std::printf("info nps %" PRId64 " nodes %" PRId64 " tbhits %d hashfull %d\n", NodesPerSecond(),
                Running.NodeCount, Running.TablebaseHits, HashFull());
    std::fflush(stdout);
}

// Whether the expected reply can be played after the move.
static bool PonderMoveFits(Move move) {
    MakeMove(move, true);
    const bool fits = Game.PonderMove != NO_MOVE && IsLegal(Game.PonderMove);
    UnmakeMove();
    return fits;
}

void PrintBestMove(Move move) {
    std::printf("bestmove %s", MoveText(move).c_str());
    if (PonderMoveFits(move))
        std::printf(" ponder %s", MoveText(Game.PonderMove).c_str());
    std::printf("\n");
    std::fflush(stdout);
}

static void AnnounceUciMove(Move move, bool) {
    PrintFinalLines();
    PrintBestMove(move);
}

constinit const Dialect UciDialect = {
    .printResult = [](const char*) {},
    .printNote =
        [](const char* line) {
            std::printf("info string %s\n", line);
            std::fflush(stdout);
        },
    .printVariations =
        [](BoundType bound, int line) {
            if (Manner->fullUciLines)
                PrintFullLines(bound, line);
            else if (SearchOptions.MultiPV > 1)
                PrintUciVariations(bound, line);
            else
                PrintUciVariation(false, bound);
        },
    .printCurrentMove = PrintUciCurrentMove,
    .printStatistics = PrintUciStatistics,
    .announceMove = AnnounceUciMove,
    .answerFinishedGame = AnswerFinishedGame,
    .keepMove =
        [](bool analysisEnded) {
            if (Limits.GoPonder || analysisEnded)
                PrintFinalLines();
        },
    .keepsLastScore = true,
    .pondersByItself = false,
};
