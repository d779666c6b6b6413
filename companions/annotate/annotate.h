// What the program is told, and what it does with it.
#pragma once

#include <string>

#include "analysis.h"

// Which games are taken; an empty text is no condition.
struct Selection {
    std::string from;   // "2024", "2024.05", "2024.05.17": played then or later
    std::string player; // part of a player's name, in any letter case
    std::string result; // "1-0", "1/2-1/2", "0-1", "*"
    std::string eco;    // beginning of the ECO code: "B", "B9", "B90"
};

struct Settings {
    std::string games;  // the PGN file
    std::string output; // what the names of the outputs begin with; empty: beside the games
    std::string values;
    std::string tablebases;
    SearchLimit limit;
    Selection selection;
    int threads = 1;
    bool find = false; // a line for each game in the place of the outputs
};

// Annotates the games, or goes on where it was stopped. The exit status.
int AnnotateGames(const Settings& settings);
