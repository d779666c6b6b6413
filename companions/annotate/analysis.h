// What the engine thinks of every position of a game.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "played_game.h"

struct SearchLimit {
    enum Kind { NODES, DEPTH, TIME };
    Kind kind = NODES;
    int amount = 200000; // nodes, plies or milliseconds for a position
};

struct Verdict {
    int32_t score = 0;      // centipawns as White sees it; beyond MATE_BOUND a mate
    int depth = 0;          // 0 where nothing was searched
    bool exact = false;     // a tablebase tells it
    std::vector<Move> line; // the best move and what it leads to
};

// The positions of the game from its start to its end, one more than it has moves.
using Analysis = std::vector<Verdict>;

// Starts the engine with tables for searches of that kind. False, with a message, when `values`, a
// file of values, cannot be read; without one, the values are those that the program carries.
// `tablebases` names directories.
bool StartEngine(const std::string& values, const std::string& tablebases, bool smallTables);

// A function of its arguments, the engine and what it was started with, unless the limit is time.
Analysis Analyse(const PlayedGame& game, const SearchLimit& limit);

// As one line of text, without its end, and back; nothing for a text that is none.
std::string AnalysisText(const Analysis& analysis);
std::optional<Analysis> ReadAnalysis(std::string_view text);
