#include "front/commands/show_commands.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "board/board_view.h"
#include "board/moves/perft.h"
#include "board/notation.h"
#include "board/position.h"
#include "book/book.h"
#include "book/book_choice.h"
#include "book/book_keys.h"
#include "front/console/divided_perft.h"
#include "front/console/move_list.h"
#include "front/game/dialect.h"
#include "front/input/reply.h"
#include "platform/clock.h"
#include "platform/standard_streams.h"
#include "search/limits.h"
#include "search/root.h"
#include "tablebase/tablebases.h"

void ShowBoard(const CommandLine&) {
    if (Speaking->showBoard != nullptr)
        Speaking->showBoard();
    else
        PrintBoard();
}

void ShowFlags(const CommandLine&) {
    std::printf("castling flags = %d\n", CastleRights);
    std::fflush(stdout);
}

void ShowMoves(const CommandLine&) {
    if (Speaking->person)
        return PrintMoveList();
    std::printf("-------------- Legal moves: ----------------\n");
    Limits.SearchMoveCount = 0;
    PrepareRoot();
    for (int i = 0; i < Root.count; i++)
        std::printf("%s (%d); ", MoveText(RootMove(i)).c_str(), Root.moves[i].orderScore);
    std::printf("\n");
    std::fflush(stdout);
}

void ShowBookMoves(const CommandLine&) {
    const auto key = uint32_t(KeysOfPosition().a);
    std::printf("Current nhash1 = %d, nhash2 = %d\n", int(key & 0xffff), int(key >> 16));
    if (BookIsOpen())
        ListBookMoves();
    else
        PrintLine("No book loaded...");
}

void ShowTablebaseStatus(const CommandLine&) {
    std::printf("UseEGTB = %s", Tablebases.UseEgtb ? "TRUE" : "FALSE");
    std::printf("\ntb_path = %s\n", Tablebases.EgtbPath);
    PrintTablebaseCount();
}

void RunPerft(const CommandLine& line) {
    if (line.Arguments() < 1 || line.Number(1) < 1)
        return;
    if (Speaking->person)
        return PrintDividedPerft(std::min(line.Number(1), MAX_PERFT_DEPTH));
    // Timing begins on the edge of a tick.
    const int64_t tick = ClockMilliseconds();
    int64_t start = tick;
    while (start == tick)
        start = ClockMilliseconds();
    // Nothing else ends a count that nobody waits for any more.
    constexpr auto wanted = [] { return !OutputAbandoned(); };
    const uint64_t leaves = CountPerft(std::min(line.Number(1), MAX_PERFT_DEPTH), wanted);
    if (!wanted())
        return;
    std::printf("total moves = %" PRIu64 " time = %.2f\n", leaves,
                double(ClockMilliseconds() - start) / 1000.0);
    std::fflush(stdout);
}
