#include "front/commands/xboard_commands.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "board/moves/legal_moves.h"
#include "board/moves/san.h"
#include "board/notation.h"
#include "board/position.h"
#include "eval/eval_cache.h"
#include "front/game/activity.h"
#include "front/game/dialect.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/input/reply.h"
#include "front/settings/options.h"
#include "platform/version.h"
#include "search/hash_memory.h"
#include "search/interrupts.h"
#include "search/strength.h"
#include "search/tree/driver.h"

namespace {

constexpr int32_t HINT_NODES = 200000;
constexpr int64_t MEGABYTE = 1048576;
constexpr int64_t MOST_MEGABYTES = 1024; // of the transposition table, as for its option

} // namespace

void NameFeatures(const CommandLine&) {
    std::printf("feature ping=1 setboard=1 usermove=1 analyze=1 colors=0 sigint=0 draw=0 "
                "myname=\"Tarquelin %s\" variants=\"normal\" memory=1 egt=\"nalimov\" done=1\n",
                VERSION);
    std::fflush(stdout);
}

void SetBoard(const CommandLine& line) {
    SetUpFen(line.Rest(1).c_str());
    ShowBoardToPerson();
    if (PieceCount[KING][WHITE] != 1 || PieceCount[KING][BLACK] != 1)
        PrintLine("tellusererror Illegal position");
}

// What is left beside the tables of the evaluation goes to the transposition table.
void SetMemory(const CommandLine& line) {
    const int64_t others = int64_t{PawnHashCount} * PAWN_ENTRY_BYTES +
                           int64_t{EvalCacheCount} * EVAL_CACHE_ENTRY_BYTES;
    const int64_t left = line.Number(1) - others / MEGABYTE - 1;
    ResizeHash(int32_t(std::clamp<int64_t>(left, 1, MOST_MEGABYTES)));
}

void SetTablebasePath(const CommandLine& line) {
    if (line.Arguments() >= 2 && SameWords(line.tokens[1].text, "nalimov"))
        NameTablebases(line.Rest(2));
}

// Without a reply that it expects, or when it expects what a weaker player would, the engine thinks
// for a moment.
static void HintToPerson(Move expected) {
    const bool post = std::exchange(Interface.PostThinking, false);
    // What is typed meanwhile must not reach the board that is searched.
    CurrentActivity = THINKING;
    Interrupts = {};
    const Move move =
        !Strength.Limited && IsLegal(expected) ? expected : SearchFixedNodes(HINT_NODES);
    CurrentActivity = IDLE;
    Interface.PostThinking = post;
    if (move != NO_MOVE)
        PrintLine(("You could play " + SanText(move) + ".").c_str());
}

void ShowHint(const CommandLine&) {
    const Move expected = Game.Pause.wanted ? Game.Pause.ponderMove : Game.PonderMove;
    if (Speaking->person)
        return HintToPerson(expected);
    if (IsLegal(expected))
        std::printf("Hint: %s\n", MoveText(expected).c_str());
    std::fflush(stdout);
}
