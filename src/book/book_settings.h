// What the user has set about the opening book and about learning.
#pragma once

#include <cstdint>

constexpr int32_t BOOK_KILL = 0;
constexpr int32_t BOOK_DISCOVER = 1;

struct BookSettings {
    bool OwnBook = true;             // book moves are played
    bool LearnWithoutOwnBook = true; // games without them teach the book too
    int32_t VarietyOfPlay = 10;      // randomness of the choice among good moves, 0..100 percent
    int32_t BookLearningBound = 400; // a score beyond it, in centipawns, teaches the book
    int32_t BookLearningMode = BOOK_KILL;
    bool UseBookLearning = true;
    bool UseBookWeights = true;
    bool PositionLearning = false; // remember positions in which the score fell
    bool UseLearningData = false;  // and use what is remembered in the search
    bool LogLearningIntoFile = false;
};

extern BookSettings Book;
