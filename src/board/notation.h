// Men and moves as text, moves in coordinate notation.
#pragma once

#include <string>
#include <string_view>

#include "board/types.h"

// The men by code, as letters of White; that of the unused code never matches.
constexpr char PieceLetters[] = ".KNP?RBQ";

// From-square, to-square and the promotion letter, if any; "0000" for no move.
std::string MoveText(Move move);

// The same four characters without the promotion letter.
std::string ShortMoveText(Move move);

// Whether the text begins with a file, a rank, a file and a rank. Letter case does not matter here.
bool HasMoveShape(std::string_view text);

// The move that the text names on the current board; it may be illegal. Letters count as typed: an
// upper-case file names a square off the board and an upper-case promotion letter none, so that
// such moves are found illegal. NO_MOVE for what leaves the board.
Move MoveFromText(std::string_view text);
