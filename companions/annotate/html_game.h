// One annotated game as a part of an HTML page.
#pragma once

#include <string>

#include "annotated_pgn.h"

// The game with that number: board, curve, and the moves with all that is said of them. Open at
// once or to be opened. The board of the engine is left at the game's start.
std::string HtmlGame(const AnnotatedGame& game, size_t number, bool open);

// What the list of games tells of it, as a row of a table.
std::string HtmlRow(const AnnotatedGame& game, size_t number);

// The same for a game that is not annotated.
std::string HtmlKeptRow(const GameText& text, const std::string& reason, size_t number);
