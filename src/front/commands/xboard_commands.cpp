#include "front/commands/xboard_commands.h"

#include <algorithm>
#include <cstdio>

#include "board/moves/legal_moves.h"
#include "board/notation.h"
#include "board/position.h"
#include "eval/eval_cache.h"
#include "front/game/game.h"
#include "front/input/reply.h"
#include "front/settings/options.h"
#include "platform/version.h"
#include "search/hash_memory.h"

namespace {

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

void ShowHint(const CommandLine&) {
    if (IsLegal(Game.PonderMove))
        std::printf("Hint: %s\n", MoveText(Game.PonderMove).c_str());
    std::fflush(stdout);
}
