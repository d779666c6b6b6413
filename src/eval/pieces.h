// What the pieces are worth where they stand: mobility, posts, targets, and what they do to the
// enemy king.
#pragma once

#include <cstdint>

// Sums over the pieces, centipawns from Black's view.
struct PieceTerms {
    int32_t middlegame = 0;
    int32_t ending = 0;
    int32_t endingOnly[2] = {}; // by colour, each from its own side's view
};

// Evaluates all pieces, with the threats between the sides and the squares that they hold. Fills
// `KingAttackers`, `Danger` and `attacks` of the figures.
PieceTerms EvaluatePieces();
