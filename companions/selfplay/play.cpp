#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <memory>
#include <vector>

#include "commands.h"
#include "companions/processes/growing_file.h"
#include "companions/processes/stop.h"
#include "companions/processes/workers.h"
#include "companions/shared/engine_start.h"
#include "companions/shared/labelled_position.h"
#include "companions/shared/opening_lines.h"
#include "companions/shared/progress.h"
#include "eval/parameters/values_file.h"
#include "search/hash_memory.h"

namespace {

// Small tables stay in the processor's own memory, and what a search of some thousand nodes has to
// remember is small.
constexpr int32_t HASH_ENTRIES = 65536;
constexpr int32_t PAWN_ENTRIES = 8192;
constexpr int32_t EVALUATIONS = 16384;

} // namespace

// False, with a message, when the values cannot be read.
static bool StartEngine(const std::string& values) {
    if (values.empty())
        LoadParameters();
    else if (!ReadValues(values))
        return false;
    StartTables();
    TranspositionCount = HASH_ENTRIES;
    PawnHashCount = PAWN_ENTRIES;
    EvalCacheCount = EVALUATIONS;
    AllocateHashTables();
    return true;
}

// The seeds of the range that the file has no game of. The last game in it may be the half of one,
// and is played again.
static bool FindMissingSeeds(GrowingFile& file, const PlaySettings& settings,
                             std::vector<uint64_t>& missing) {
    const auto inRange = [&settings](uint64_t seed) {
        return settings.firstSeed <= seed && seed <= settings.lastSeed;
    };
    std::vector<bool> found(settings.lastSeed - settings.firstSeed + 1);
    uint64_t lastGame = 0;
    int64_t placeOfLast = -1;
    const bool isRead = file.ForEachLine([&](std::string_view line, int64_t place) {
        const auto position = ReadLabelledPosition(line);
        if (!position)
            return;
        if (placeOfLast < 0 || position->seed != lastGame)
            placeOfLast = place;
        lastGame = position->seed;
        if (inRange(lastGame))
            found[lastGame - settings.firstSeed] = true;
    });
    if (!isRead)
        return false;
    if (placeOfLast >= 0 && inRange(lastGame)) {
        found[lastGame - settings.firstSeed] = false;
        if (!file.CutAt(placeOfLast))
            return false;
    }
    for (uint64_t i = 0; i < found.size(); i++) {
        if (!found[i])
            missing.push_back(settings.firstSeed + i);
    }
    return true;
}

static uint64_t CountLines(const std::string& text) {
    return uint64_t(std::ranges::count(text, '\n'));
}

// Plays the games of the seeds and writes them in their order. The exit status.
static int PlaySeeds(const PlaySettings& settings, const std::vector<uint64_t>& seeds,
                     const OpeningLines& openings, GrowingFile& file) {
    NoteStopSignals();
    Progress progress("self-play", seeds.size(), "positions", "games");
    Workers workers(settings.threads, seeds.size(),
                    [&](uint64_t i) { return PlayGame(seeds[i], settings.game, openings); });
    uint64_t games = 0;
    uint64_t positions = 0;
    while (workers.Started() && games < seeds.size() && StopSignal() == 0) {
        progress.Tell(games, positions);
        if (const std::optional<std::string> lines = workers.Next()) {
            if (!file.Append(*lines))
                return 1;
            games++;
            positions += CountLines(*lines);
        } else if (workers.HaveFailed()) {
            std::fprintf(stderr, "A process has ended before its games were played\n");
            return 1;
        }
    }
    ClearProgressLine();
    std::printf("%s: %" PRIu64 " games with %" PRIu64 " positions added\n", settings.output.c_str(),
                games, positions);
    if (games == seeds.size())
        return 0;
    return StopSignal() != 0 ? SIGNAL_STATUS + StopSignal() : 1;
}

int PlayGames(const PlaySettings& settings) {
    OpeningLines openings;
    GrowingFile file;
    std::vector<uint64_t> seeds;
    if (!StartEngine(settings.values) || !openings.Read(settings.openings) ||
        !file.Open(settings.output, LABELLED_POSITIONS) || !FindMissingSeeds(file, settings, seeds))
        return 1;
    return PlaySeeds(settings, seeds, openings, file);
}
