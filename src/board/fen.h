// Positions as text: reading and writing FEN.
#pragma once

#include <string>

enum class FenFields {
    // The en-passant field names the pawn that has just made the double step; the square behind it
    // is silently ignored. The half-move clock is not read.
    OWN,
    // The field names the square behind the pawn, as other programs write it; the pawn's own square
    // is understood as well. The half-move clock is read.
    STANDARD,
};

// Sets the position up from a FEN. Nothing is validated and nothing is printed: unknown characters
// are skipped, a text that stops early leaves the rest at its default (black to move where the
// side is missing), men beyond the board are dropped. The full-move field is not read.
void LoadFen(const char* text, FenFields fields = FenFields::OWN);

// The position as FEN; always six fields.
std::string WriteFen(FenFields fields = FenFields::OWN);
