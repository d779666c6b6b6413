// Positions in which the engine's score fell between two of its moves, and what becomes of them.
#pragma once

#include <cstdint>
#include <span>

// A search after which the engine has moved.
struct SearchRecord {
    int32_t score;   // centipawns, 0 for a book move
    uint64_t posKey; // the position searched
    bool fromBook;
};

// Called after every move of the engine, when it stands on the board: takes note of a fall of the
// score, writes down what was noted when the game goes wrong, and forgets it when it does not.
// `searches` are the latest, newest last; `depth` is the last one's, in plies.
void LearnFromSearches(std::span<const SearchRecord> searches, int32_t depth);

// Forgets what was noted in this game.
void ForgetNotedPositions();

// Whether the position on the board has been learned at least as deep as `depth` (1/60 ply), with
// its evaluation for the side to move, which is left alone otherwise. Only positions that could
// have been noted are looked up.
bool LearnedEvaluation(int32_t depth, int32_t& evaluation);
