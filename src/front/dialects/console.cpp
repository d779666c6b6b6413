#include "front/dialects/console.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>

#include "board/notation.h"
#include "front/dialects/variation.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/resign.h"
#include "front/input/reply.h"
#include "search/root.h"
#include "search/state.h"

namespace {

// Nodes until which an unforced line is held back; the first node of all is let through.
constexpr int64_t SILENT_NODES = 100000;
// Lifts mate scores beyond the range of ordinary scores.
constexpr int32_t PRINTED_MATE_OFFSET = 67;

} // namespace

static int32_t PrintedScore(int32_t score) {
    if (std::abs(score) <= MATE_BOUND)
        return score;
    return score > 0 ? score + PRINTED_MATE_OFFSET : score - PRINTED_MATE_OFFSET;
}

// Unless forced, searches just begun stay silent.
static void PrintThinking(bool forced) {
    if (!Interface.PostThinking ||
        (!forced && Running.NodeCount > 0 && Running.NodeCount <= SILENT_NODES))
        return;
    std::printf("%d %d %d %" PRId64, Running.IterationDepth + 1, PrintedScore(Root.moves[0].score),
                ElapsedTime(), Running.NodeCount);
    PrintVariationMoves(0);
    std::printf("\n");
    std::fflush(stdout);
}

static void AnnounceMove(Move move, bool fromBook) {
    if (!fromBook)
        PrintThinking(true);
    // Without posting, nothing was printed that told it.
    Game.PonderMove = ExpectedReply(move);
    if (ShouldResign())
        std::printf("resign\n");
    std::printf("move %s\n", MoveText(move).c_str());
    std::fflush(stdout);
}

constinit const Dialect ConsoleDialect = {
    .printResult = PrintLine,
    .printNote = PrintLine,
    .printVariations = [](BoundType, int) { PrintThinking(false); },
    .printCurrentMove = [] {},
    .printStatistics = [] {},
    .announceMove = AnnounceMove,
    .answerFinishedGame = [] {},
    .keepMove =
        [](bool analysisEnded) {
            if (analysisEnded)
                PrintThinking(true);
        },
    .keepsLastScore = false,
    .pondersByItself = true,
};
