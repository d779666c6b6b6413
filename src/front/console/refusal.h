// Why a move cannot be played, for the person who has typed it.
#pragma once

#include <string>

// The reason in a sentence, for a text in coordinates or in standard algebraic notation.
std::string WhyNotPlayed(const std::string& text);
