// What the user has set about the opening book and about learning.
#pragma once

#include <cstdint>

extern bool OwnBook;              // book moves are played
extern int32_t VarietyOfPlay;     // randomness of the choice among good moves, 0..100 percent
extern int32_t BookLearningBound; // a score beyond it, in centipawns, teaches the book
extern int32_t BookLearningMode;
extern bool UseBookLearning;
extern bool UseBookWeights;
extern bool PositionLearning; // remember positions in which the score fell
extern bool UseLearningData;  // and use what is remembered in the search
extern bool LogLearningIntoFile;

constexpr int32_t BOOK_KILL = 0;
constexpr int32_t BOOK_DISCOVER = 1;

// Sets all of them to their defaults.
void SetDefaultBookSettings();
