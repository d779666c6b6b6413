#include "front/commands/batch_commands.h"

#include "front/game/game.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "tools/epd_evaluation.h"
#include "tools/pgn_evaluation.h"

// Another position is on the board.
static void ForgetSearch() {
    ForgetLastScore();
    Limits.GoPonder = false;
}

void EvaluateEpdFile(const CommandLine& line) {
    if (line.Arguments() < 1)
        return;
    std::string path = line.text.substr(line.tokens[1].offset);
    path.erase(path.find_last_not_of(' ') + 1);
    EpdEvaluate(path.c_str());
    ForgetSearch();
}

void EvaluatePgnFile(const CommandLine&) {
    PgnEvaluate("c:\\work\\source.pgn");
    ForgetSearch();
}
