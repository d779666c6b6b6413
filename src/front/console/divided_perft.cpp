#include "front/console/divided_perft.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "board/moves/make_move.h"
#include "board/moves/perft.h"
#include "board/moves/san.h"
#include "front/console/move_list.h"
#include "platform/clock.h"
#include "platform/standard_streams.h"

static uint64_t CountAfter(Move move, int depth) {
    if (depth <= 1)
        return 1;
    MakeMove(move, true);
    const uint64_t leaves = CountPerft(depth - 1, [] { return !OutputAbandoned(); });
    UnmakeMove();
    return leaves;
}

void PrintDividedPerft(int depth) {
    const int64_t start = ClockMilliseconds();
    uint64_t total = 0;
    for (const Move move : LegalMoves()) {
        const uint64_t leaves = CountAfter(move, depth);
        total += leaves;
        std::printf("%7s %12" PRIu64 "\n", SanText(move).c_str(), leaves);
        std::fflush(stdout);
    }
    const int64_t elapsed = std::max<int64_t>(ClockMilliseconds() - start, 1);
    std::printf("  total %12" PRIu64 " in %.2f s, %.1f million a second\n", total,
                double(elapsed) / 1000.0, double(total) / double(elapsed) / 1000.0);
    std::fflush(stdout);
}
