// The dialect of a person at a terminal: the board after each of the engine's moves, thinking in
// algebraic notation under a head line, results in words.
#pragma once

#include "front/game/dialect.h"

extern const Dialect PersonDialect;

// Says at what level the engine plays.
void TellStrength();

// Says how to begin.
void WelcomePerson();
