// What becomes of the moves that were counted: which of them enter the book, with what statistics,
// and which are never to be played.
#pragma once

#include <vector>

#include "book_writer.h"
#include "sources/move_table.h"
#include "sources/searched_positions.h"

struct JudgementRules {
    // Moves and positions that no source has games or lines of need none: they are there because
    // they were searched, or stand in another book.
    int minGames = 1;         // of a move
    int minPositionGames = 1; // of all moves of a position
    int minScore = 0;         // percent of the points
    int minShare = 0;         // percent of the position's games in which a move was played
    bool dropBad = false;     // what is too bad is left out, not killed
    int mostPoints = 254;     // that a byte of the statistics may hold, 1..254
    // Of moves that lead to searched positions:
    int priorPoints = 40;  // half-points that a score counts like, 0..254
    int tenToOne = 400;    // centipawns by which a side is ahead that makes ten points to one
    int namedGames = 8;    // a move with fewer is rare
    int namedLoss = 60;    // one that is not is too bad when it leaves so much less than the best
    int mostLoss = 45;     // a rare one when it leaves so much less than the best,
    int worstScore = -70;  // or less than this,
    int badScore = -40;    // or less than this ...
    int worstLoss = 25;    // ... and so much less than the best
    int rareDiscount = 10; // centipawns off each time a move is half as frequent as usual
    bool keepUnknown = false; // moves to positions that nobody has searched are kept
};

// The moves for the book, ascending by position; in each the moves to be played come first, those
// with the most points before the others. The table is empty afterwards.
std::vector<BookEntry> JudgeMoves(MoveTable& table, const SearchedPositions& searched,
                                  const JudgementRules& rules);
