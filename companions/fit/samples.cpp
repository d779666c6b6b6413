#include "samples.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>

#include "board/attackers.h"
#include "board/fen.h"
#include "board/position.h"
#include "board/score.h"
#include "companions/shared/files.h"
#include "companions/shared/labelled_position.h"
#include "companions/shared/progress.h"
#include "eval/evaluate.h"
#include "search/state.h"
#include "search/tree/quiesce.h"
#include "tools/pgn_game.h"

namespace {

// Half-points of these say more about the opening book than about the position.
constexpr int OPENING_PLIES = 8;
// A position of a game record is quiet when captures and checks change its score by less.
constexpr int32_t QUIET_MARGIN = 60;
// Beyond this the game is decided, and the size of a score says nothing.
constexpr float LARGEST_LABEL = 3000;
constexpr float NO_LABEL = std::numeric_limits<float>::quiet_NaN();

} // namespace

struct GameSource {
    PgnReader reader;
    PgnGame game;

    GameSource() = default;
    ~GameSource() {
        PgnClose(reader);
    }
    GameSource(const GameSource&) = delete;
    GameSource& operator=(const GameSource&) = delete;
};

const char* PhaseName(int phase) {
    constexpr const char* names[PHASES] = {"28 and more men", "20 to 27", "12 to 19",
                                           "11 and fewer"};
    return names[phase];
}

static uint8_t PhaseOf(int men) {
    return men >= 28 ? 0 : men >= 20 ? 1 : men >= 12 ? 2 : 3;
}

// Spreads neighbouring numbers over all 64 bits.
static uint64_t Mixed(uint64_t x) {
    x = (x ^ x >> 30) * 0xbf58476d1ce4e5b9;
    x = (x ^ x >> 27) * 0x94d049bb133111eb;
    return x ^ x >> 31;
}

static int MenOf(std::string_view fen) {
    int men = 0;
    for (const char c : fen.substr(0, fen.find(' ')))
        men += c > '9' ? 1 : 0;
    return men;
}

void Samples::Add(std::string_view fen, float score, float result, uint64_t game) {
    if (Mixed(++seen) % uint64_t(rules.every) != 0)
        return;
    games.insert(game);
    const bool heldOut = Mixed(game + 1) % 100 < uint64_t(rules.heldOutPercent);
    all.push_back({texts.size(), score, result, 0, PhaseOf(MenOf(fen)), heldOut});
    texts += fen;
    texts += '\0';
}

static float ResultNamed(std::string_view name) {
    return name == "1-0" ? 1.0F : name == "0-1" ? 0.0F : 0.5F;
}

// Enough to keep a damaged line from being a position: a king each, and 8 ranks.
static bool LooksLikePosition(std::string_view fen) {
    const std::string_view men = fen.substr(0, fen.find(' '));
    const auto count = [men](char c) { return std::ranges::count(men, c); };
    return count('K') == 1 && count('k') == 1 && count('/') == 7 &&
           (fen.find(" w ") != std::string_view::npos || fen.find(" b ") != std::string_view::npos);
}

bool Samples::ReadLine(std::string_view line) {
    const std::optional<LabelledPosition> position = ReadLabelledPosition(line);
    if (!position || !LooksLikePosition(position->fen))
        return false;
    Add(position->fen, std::clamp(float(position->score), -LARGEST_LABEL, LARGEST_LABEL),
        ResultNamed(position->result), position->seed);
    return true;
}

bool Samples::ReadLines(const std::string& path) {
    std::vector<uint8_t> bytes;
    if (const std::error_code error = ReadWholeFile(path, bytes)) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), error.message().c_str());
        return false;
    }
    std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    uint64_t number = 0;
    uint64_t broken = 0;
    // A last line without its end was not written to its end.
    for (size_t end; (end = rest.find('\n')) != std::string_view::npos;
         rest.remove_prefix(end + 1)) {
        number++;
        if (end == 0 || rest[0] == '#' || ReadLine(rest.substr(0, end)))
            continue;
        if (broken++ == 0)
            std::fprintf(stderr, "%s:%llu: this is no sample\n", path.c_str(),
                         static_cast<unsigned long long>(number));
    }
    if (broken > 1)
        std::fprintf(stderr, "%s: %llu lines are no samples\n", path.c_str(),
                     static_cast<unsigned long long>(broken));
    return true;
}

static bool BoardIsQuiet() {
    PlyStates[0].inCheck = InCheck(SideToMove);
    if (PlyStates[0].inCheck)
        return false;
    Running.SearchPly = 0;
    return std::abs(Quiesce(-MATE, MATE) - Evaluate()) < QUIET_MARGIN;
}

void Samples::ReadGame(GameSource& source) {
    const PgnResult end = source.game.result;
    if (end == PGN_UNKNOWN_RESULT)
        return;
    const float result = end == PGN_WHITE_WON ? 1.0F : end == PGN_DRAWN ? 0.5F : 0.0F;
    const uint64_t number = files << 40 | uint64_t(source.game.number);
    for (int ply = 0; PgnNextMove(source.reader, source.game) == PgnStep::MOVE; ply++) {
        if (ply >= OPENING_PLIES && BoardIsQuiet())
            Add(WriteFen(), NO_LABEL, result, number);
        PgnPlay(source.game);
    }
}

bool Samples::ReadGames(const std::string& path) {
    const auto source = std::make_unique<GameSource>();
    if (!PgnOpen(source->reader, path.c_str())) {
        std::fprintf(stderr, "%s cannot be opened\n", path.c_str());
        return false;
    }
    std::error_code error;
    Progress progress(path, std::filesystem::file_size(path, error), "games");
    while (PgnNextGame(source->reader, source->game)) {
        ReadGame(*source);
        const long read = std::ftell(source->reader.file);
        progress.Tell(read > 0 ? uint64_t(read) : 0, uint64_t(source->game.number));
    }
    return true;
}

bool Samples::Read(const std::string& path) {
    files++;
    return path.ends_with(".pgn") ? ReadGames(path) : ReadLines(path);
}
