// What the program can be told to do: a record of settings and a procedure for each command, one
// source file each. The procedures return the exit status, 0 when all went well.
#pragma once

#include <cstdint>
#include <string>

#include "companions/processes/growing_file.h"
#include "companions/shared/labelled_position.h"
#include "game.h"

// What both commands write.
constexpr FileKind LABELLED_POSITIONS = {"file of labelled positions", [](std::string_view line) {
                                             return ReadLabelledPosition(line).has_value();
                                         }};

struct PlaySettings {
    uint64_t firstSeed = 0;
    uint64_t lastSeed = 0;
    std::string output;
    std::string values; // the engine's usual file when empty
    std::string openings = "openings";
    int threads = 1;
    GameSettings game;
};
int PlayGames(const PlaySettings& settings);

struct JudgeSettings {
    std::string positions;
    std::string output;
    std::string engine;
    int nodes = 1000;
    int threads = 1;
};
int JudgePositions(const JudgeSettings& settings);
