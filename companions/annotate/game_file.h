// The games of a PGN file of any size, each as its piece of the file.
//
// All pieces together are the file: what stands between two games belongs to the first of them, and
// what stands before the first to that one.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

struct GamePiece {
    int64_t begin;
    int64_t size;
    int64_t line; // in the file, from 1
};

class GameFile {
public:
    GameFile() = default;
    ~GameFile();
    GameFile(const GameFile&) = delete;
    GameFile& operator=(const GameFile&) = delete;

    // Opens the file and finds its games. False, with a message, when it cannot be read.
    bool Open(const std::string& path);
    const std::vector<GamePiece>& Games() const {
        return games;
    }
    // The bytes of a game; empty when the file has changed meanwhile. May be asked by several
    // processes at the same time.
    std::string Text(const GamePiece& game) const;
    // A number that files with different bytes do not share, as far as chance goes.
    uint64_t Fingerprint() const {
        return fingerprint;
    }

private:
    int file = -1;
    uint64_t fingerprint = 0;
    std::vector<GamePiece> games;
};
