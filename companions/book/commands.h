// What the program can be told to do: a record of settings and a procedure for each command, one
// source file each. The procedures return the exit status, 0 when all went well.
#pragma once

#include <string>
#include <vector>

#include "judgement.h"
#include "sources/sources.h"

using Files = std::vector<std::string>;

struct BuildSettings {
    std::string output;
    std::string weights; // searched positions, when not empty
    bool addSearchedMoves = false;
    SourceRules rules;
    JudgementRules judgement;
    Files sources;
};
// Makes a book from games and opening lines.
int BuildBook(const BuildSettings& settings);

struct MergeSettings {
    std::string output;
    JudgementRules judgement;
    Files books;
};
// Adds the points of several books.
int MergeBooks(const MergeSettings& settings);

struct DumpSettings {
    std::string book;
    bool records = false;
};
// Prints what is in a book, by positions or by records.
int DumpBook(const DumpSettings& settings);

struct CheckSettings {
    std::string book;
};
// Looks for faults in a book.
int CheckBook(const CheckSettings& settings);

struct SurveySettings {
    std::string book;
    std::string weights; // searched positions, when not empty
    int variety = 10;    // percent
    int worst = 10;
};
// Shows what the engine plays from a book, and the worst positions that it comes to.
int SurveyBook(const SurveySettings& settings);

struct RandomSettings {
    std::string output;
    int moves = 10000;
    int seed = 1;
};
// Makes a book of random games.
int MakeRandomBook(const RandomSettings& settings);

// Adds the searched positions of a file, when one is named, and backs their scores up. False, with
// a message, when it has none.
bool ReadWeights(const std::string& path, SearchedPositions& searched);
