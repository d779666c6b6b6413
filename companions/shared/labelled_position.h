// Positions with what is known about them: the lines that self-play writes and a fit reads.
//
// A file has a position a line, in four columns separated by tabs: the FEN with all six fields, the
// score in centipawns as White sees it, the result of the game that it comes from ("1-0",
// "1/2-1/2" or "0-1"), and the seed of that game. The lines of a game stand together. The FEN is
// the usual one: its en-passant field names the square behind the pawn, and only where the pawn
// can be taken. A line without its end is half a line and no position.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct LabelledPosition {
    std::string_view fen;
    int score; // centipawns, as White sees it
    std::string_view result;
    uint64_t seed;
};

// The columns of a line without its end; nothing when it is no such line.
std::optional<LabelledPosition> ReadLabelledPosition(std::string_view line);

// The line, with its end.
std::string LabelledLine(std::string_view fen, int score, std::string_view result, uint64_t seed);

// The FEN of the position on the board.
std::string UsualFen();
