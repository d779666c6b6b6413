// What the companion for endgame tablebases can be told to do. Every command gets the words after
// its name and returns the exit status: 0 when all went well.
#pragma once

#include <span>
#include <string>

using CommandWords = std::span<const std::string>;

constexpr int WRONG_USAGE = 2;

// [--threads N] DIRECTORY [CLASS...]: makes the tables of the classes, or of all classes of up to
// four men, that the directory does not hold yet.
int BuildTables(CommandWords words);

// DIRECTORY: compares every table, plain or compressed, with the published one, as far as that is
// known, and otherwise looks for what cannot be.
int VerifyTables(CommandWords words);

// DIRECTORY: tells what every table holds.
int ListTables(CommandWords words);

// DIRECTORY [TARGET]: writes the plain tables compressed into the target directory, else beside
// them, and reads them back. Those that are there stay.
int CompressTables(CommandWords words);

// DIRECTORY [TARGET]: the other way round.
int DecompressTables(CommandWords words);
