#include "front/commands/person_commands.h"

#include <cstdio>

#include "board/notation.h"
#include "front/commands/play_commands.h"
#include "front/console/eval_table.h"
#include "front/console/game_file.h"
#include "front/console/person.h"
#include "front/game/dialect.h"
#include "front/game/game.h"
#include "front/game/typed_move.h"
#include "front/input/keyword.h"
#include "front/input/reply.h"
#include "search/strength.h"
#include "tools/pgn_moves.h"

void EnterSan(const CommandLine& line) {
    std::string text = line.tokens[0].text;
    while (!text.empty() && std::string("+#!?").find(text.back()) != std::string::npos)
        text.pop_back();
    const SanMove found = PgnParseSan(text);
    if (found.matches == 1)
        EnterMove({MoveText(found.move), {}});
    else
        RefuseMove(text);
}

void ShowEvalTable(const CommandLine&) {
    if (Speaking->person)
        PrintEvalTable();
}

// The level, or full strength for anything that is no number.
void SetStrength(const CommandLine& line) {
    if (const int32_t elo = line.Number(1); elo > 0)
        PlayAtLevel(elo);
    else if (line.Arguments() > 0)
        PlayAtFullStrength();
    if (Speaking->person)
        TellStrength();
}

void SaveGameFile(const CommandLine& line) {
    if (!Speaking->person || line.Arguments() < 1)
        return;
    const std::string path = line.Rest(1);
    std::printf(SaveGame(path.c_str()) ? "The game is in %s.\n" : "%s cannot be written.\n",
                path.c_str());
    std::fflush(stdout);
}

void LoadGameFile(const CommandLine& line) {
    if (!Speaking->person || line.Arguments() < 1)
        return;
    if (!LoadGame(line.Rest(1).c_str())) {
        PrintLine("There is no game to read.");
        return;
    }
    Game.ForceMode = true;
    ShowBoardToPerson();
    PrintLine("Moves are yours for both sides; go lets Tarquelin play.");
}
