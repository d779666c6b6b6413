// A move as it is typed, made on the board or refused.
#pragma once

#include <string>

// Plays the move that the line begins with. When it is not legal, says so and returns false.
bool PlayTypedMove(const std::string& line);

// Says of a line that its move cannot be played.
void RefuseMove(const std::string& line);
