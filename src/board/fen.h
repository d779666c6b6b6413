// Positions as text: reading and writing FEN.
#pragma once

#include <string>

// Sets the position up from a FEN. Nothing is validated and nothing is printed: unknown characters
// are skipped, a text that stops early leaves the rest at its default (black to move where the
// side is missing), men beyond the board are dropped. The en-passant field names the pawn that
// has just made the double step, not the square behind it, which is silently ignored. The
// half-move and full-move fields are not read.
void LoadFen(const char* text);

// The position as FEN, in the same en-passant convention; always six fields.
std::string WriteFen();
