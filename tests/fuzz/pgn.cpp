// Game records, with their moves on the board.
#include "fuzz.h"

#include <memory>

#include "tools/pgn_game.h"

void Try(std::string_view input) {
    PutFile("games.pgn", input);
    const auto reader = std::make_unique<PgnReader>();
    Claim(PgnOpen(*reader, "games.pgn"), "a file can be read");
    PgnWantedTag tags[] = {{"White"}, {"Date"}};
    PgnGame game;
    game.wanted = tags;
    while (PgnNextGame(*reader, game)) {
        while (PgnNextMove(*reader, game) == PgnStep::MOVE)
            PgnPlay(game);
        ClaimSoundPosition();
    }
    PgnClose(*reader);
}
