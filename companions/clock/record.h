// A game as it is being played, and what there is to tell of it at the end.
#pragma once

#include <string>
#include <vector>

#include "board/types.h"

// From where a game sets out.
struct GameStart {
    std::string fen;         // empty for the start of every game
    std::vector<Move> moves; // that are made before anybody thinks
};

struct GameRecord {
    GameStart start;
    std::vector<Move> moves; // all, those of the start among them
};

// Sets the start up on the board, with its moves.
void SetUp(const GameStart& start);

// "startpos moves e2e4", "fen 8/8/... moves e2e4", as UCI has it.
std::string PositionWords(const GameRecord& record);

// Reads such words; false when the position has not one king a side, or a move is not legal.
bool ReadStart(const std::string& words, GameStart& start);

// The game as PGN.
std::string WritePgn(const GameRecord& record, const std::string& event, const std::string& result);
