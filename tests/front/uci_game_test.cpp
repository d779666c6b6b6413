// Two engines and their clocks, as an interface has them play.

#include <algorithm>
#include <chrono>
#include <string>

#include "board/moves/legal_moves.h"
#include "support/board_test.h"
#include "support/engine_process.h"

namespace {

using Time = std::chrono::milliseconds;
using Now = std::chrono::steady_clock;

constexpr int PLIES = 16;
constexpr Time INCREMENT{100};

class UciGame : public BoardTest {};

// Nothing is sent while an engine thinks: it must look at its clock and not wait for a line. On a
// busy machine a move may cost more than there is; the next one is asked for all the same.
TEST_F(UciGame, IsPlayedByTheClockOverPipes) {
    EngineProcess engines[2];
    for (EngineProcess& engine : engines) {
        engine.Send("uci");
        engine.ReadUntil("uciok");
    }
    Time clocks[] = {Time(1000), Time(1000)};
    std::string moves = " moves";
    for (int ply = 0; ply < PLIES; ply++) {
        EngineProcess& engine = engines[ply % 2];
        engine.Send("position startpos" + moves);
        const Now::time_point start = Now::now();
        engine.Send("go winc 100 binc 100 wtime " + std::to_string(clocks[0].count()) + " btime " +
                    std::to_string(clocks[1].count()));
        engine.ReadThrough("bestmove ");
        const std::string move = engine.ReadLine().substr(0, 4);
        const Time left = clocks[ply % 2] - std::chrono::duration_cast<Time>(Now::now() - start);
        clocks[ply % 2] = std::max(left, Time(1)) + INCREMENT;
        ASSERT_TRUE(HasMoveShape(move) && IsLegal(MoveFromText(move))) << engine.Transcript();
        MakeMove(MoveFromText(move), true);
        moves += " " + move;
    }
}

} // namespace
