// Legal positions of many kinds, shared by tests that look for trouble everywhere.
#pragma once

#include <span>

struct TestPosition {
    const char* name;
    const char* fen; // as `LoadFen` reads it: the en-passant field names the pawn's square
};

// Openings, middlegames, endings; castling, en passant, promotions, pins, checks and double checks;
// both sides to move.
std::span<const TestPosition> VariedPositions();
