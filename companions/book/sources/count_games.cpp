#include "sources.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "board/position.h"
#include "companions/shared/progress.h"
#include "coordinates.h"
#include "platform/files.h"
#include "tools/pgn_game.h"

namespace {

// What is counted of the game being read, by colour.
struct GameView {
    bool counted[2];
    uint32_t won[2]; // half-points
    uint32_t lost[2];
};

struct OpenGames {
    std::string path;
    PgnReader reader;
    PgnWantedTag names[2] = {{"White"}, {"Black"}};
    PgnGame game;

    OpenGames() {
        game.wanted = names;
    }
    ~OpenGames() {
        PgnClose(reader);
    }
    OpenGames(const OpenGames&) = delete;
    OpenGames& operator=(const OpenGames&) = delete;
};

} // namespace

static char LowerCase(char c) {
    return char(std::tolower(static_cast<unsigned char>(c)));
}

static bool Contains(std::string_view text, std::string_view part) {
    const auto same = [](char a, char b) { return LowerCase(a) == LowerCase(b); };
    return part.empty() ||
           std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

static bool Counts(Colour side, const OpenGames& games, const SourceRules& rules) {
    const PgnResult victory = side == WHITE ? PGN_WHITE_WON : PGN_BLACK_WON;
    if (!rules.CountsSide(side))
        return false;
    if (rules.onlyWinner && games.game.result != victory)
        return false;
    return Contains(games.names[side].value, rules.player);
}

static GameView ViewOf(const OpenGames& games, const SourceRules& rules) {
    GameView view = {};
    for (const Colour side : {WHITE, BLACK}) {
        view.counted[side] = Counts(side, games, rules);
        const PgnResult victory = side == WHITE ? PGN_WHITE_WON : PGN_BLACK_WON;
        if (games.game.result == PGN_DRAWN)
            view.won[side] = view.lost[side] = 1;
        else if (games.game.result != PGN_UNKNOWN_RESULT)
            (games.game.result == victory ? view.won : view.lost)[side] = 2;
    }
    return view;
}

static void NameBadMove(const OpenGames& games, int plies, PgnStep step) {
    ClearProgressLine();
    std::fprintf(stderr, "%s: game %lld, ply %d: \"%s\" is %s\n", games.path.c_str(),
                 static_cast<long long>(games.game.number), plies + 1, games.game.moveText,
                 step == PgnStep::UNKNOWN_MOVE ? "no legal move" : "ambiguous");
}

static void CountGame(OpenGames& games, const SourceRules& rules, MoveCounter& counter) {
    const GameView view = ViewOf(games, rules);
    if (!view.counted[WHITE] && !view.counted[BLACK])
        return;
    for (int plies = 0; plies < rules.depth; plies++) {
        const PgnStep step = PgnNextMove(games.reader, games.game);
        if (step == PgnStep::UNKNOWN_MOVE || step == PgnStep::AMBIGUOUS_MOVE)
            NameBadMove(games, plies, step);
        const Move move = games.game.move;
        if (step != PgnStep::MOVE || move == NO_MOVE || !FitsBook(move))
            return;
        if (view.counted[SideToMove]) {
            MoveCount& entry = counter.Entry(move);
            entry.AddGame();
            entry.AddPoints(view.won[SideToMove], view.lost[SideToMove]);
        }
        PgnPlay(games.game);
    }
}

// Bytes of the file that were read.
static uint64_t Position(const PgnReader& reader) {
    const long position = std::ftell(reader.file);
    return uint64_t(std::max(position, 0L));
}

bool CountGames(const std::string& path, const SourceRules& rules, MoveCounter& counter) {
    const auto games = std::make_unique<OpenGames>();
    games->path = path;
    if (!PgnOpen(games->reader, path.c_str())) {
        std::fprintf(stderr, "%s cannot be opened\n", path.c_str());
        return false;
    }
    std::error_code error;
    Progress progress(path, uint64_t(std::filesystem::file_size(path, error)), "games");
    while (PgnNextGame(games->reader, games->game)) {
        CountGame(*games, rules, counter);
        progress.Tell(Position(games->reader), uint64_t(games->game.number));
    }
    std::printf("%s: %lld games\n", path.c_str(), static_cast<long long>(games->game.number));
    return true;
}
