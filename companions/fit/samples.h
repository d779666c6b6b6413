// The positions that the evaluation is fitted to.
//
// Sample files have labelled positions (companions/shared/labelled_position.h) and comments that
// begin with "#". From game records (*.pgn) come the quiet positions of all games that have a
// result; they have no score.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

// All scores are White's.
struct Sample {
    size_t fen;   // where its text begins
    float score;  // centipawns; no number where there is none
    float result; // 0, 0.5 or 1
    float target; // what the evaluation should promise, 0..1
    uint8_t phase;
    bool heldOut; // not fitted to, only measured; with all others of its game
};

// The phases of the game that errors are told by, by men on the board.
constexpr int PHASES = 4;
const char* PhaseName(int phase);

class Samples {
public:
    struct Rules {
        int heldOutPercent = 10; // of the games
        int every = 1;           // takes one position in so many
    };
    explicit Samples(Rules samplingRules) : rules(samplingRules) {}

    // Adds a file. Lines and games that make no sense are counted and the first is named. False,
    // with a message, when the file cannot be read.
    bool Read(const std::string& path);
    const char* Fen(const Sample& sample) const {
        return texts.data() + sample.fen;
    }

    std::vector<Sample> all;
    size_t Games() const {
        return games.size();
    }

private:
    bool ReadLines(const std::string& path);
    bool ReadGames(const std::string& path);
    bool ReadLine(std::string_view line);
    void ReadGame(struct GameSource& source);
    void Add(std::string_view fen, float score, float result, uint64_t game);

    Rules rules;
    std::string texts;                  // of all positions, each ended by a null character
    std::unordered_set<uint64_t> games; // their numbers
    uint64_t seen = 0;
    uint64_t files = 0;
};
