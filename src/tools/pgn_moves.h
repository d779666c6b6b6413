// Moves in the notation of game records: standard algebraic, and what is written in its place.
#pragma once

#include <string_view>

#include "board/types.h"

struct SanMove {
    Move move;   // a legal move that fits the text; NO_MOVE when there is none
    int matches; // how many fit: 0, 1, or more for an ambiguous text
};

// The legal move of the position that the text means, without check and annotation marks: castling
// with letters or digits, or a piece letter (none for pawns), what is told of the square it leaves,
// the square it goes to, and a promotion letter. A ":" or "x" tells a capture and nothing else;
// where it stands does not matter. A promotion without its letter fits four moves and is ambiguous.
// Both squares in full need no piece letter, a pawn's capture not the rank; hyphens do not matter.
SanMove PgnParseSan(std::string_view text);
