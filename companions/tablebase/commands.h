// What the companion for endgame tablebases can be told to do: a record of settings and a procedure
// for each command. The procedures return the exit status, 0 when all went well.
#pragma once

#include <filesystem>
#include <vector>

constexpr int MAX_THREADS = 8; // each takes some 100 MB

struct BuildSettings {
    int threads = 1;
    std::filesystem::path directory;
    std::vector<int> classes; // of up to four men; none for all
};
// Makes the tables of the classes, and of those that they need, which the directory does not hold
// yet.
int BuildTables(const BuildSettings& settings);

// Compares every table of the directory, plain or compressed, with the published one, as far as
// that is known, and otherwise looks for what cannot be.
int VerifyTables(const std::filesystem::path& directory);

// Tells what every table holds.
int ListTables(const std::filesystem::path& directory);

struct ConvertSettings {
    int threads = 1;
    std::filesystem::path directory;
    std::filesystem::path target; // the directory itself, when empty
};
// Writes the plain tables compressed into the target directory, and reads them back. Those that are
// there stay.
int CompressTables(const ConvertSettings& settings);
// The other way round.
int DecompressTables(const ConvertSettings& settings);
