// Moves in standard algebraic notation, as a person writes them.
#pragma once

#include <string>
#include <string_view>

#include "board/types.h"

// The text of a legal move of the position on the board, with its check or mate.
std::string SanText(Move move);

// Whether the text looks like a move in this notation. Its piece is a capital letter.
bool HasSanShape(std::string_view text);
