// The vocabulary of scores and depths: every floor from here up counts in these units.
#pragma once

#include <cstdint>

// Scores are centipawns from the side to move's view.
constexpr int32_t MATE = 32700;       // a side mated at search ply p scores p - MATE
constexpr int32_t MATE_BOUND = 31000; // scores beyond it either way are mates

constexpr int32_t ONE_PLY = 60; // unit of every depth

// What a search result says of the true score: at most, at least, or exactly that much.
enum BoundType : int32_t { BOUND_NONE, BOUND_UPPER, BOUND_LOWER, BOUND_EXACT };
