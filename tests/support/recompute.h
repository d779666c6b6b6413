// The incremental values of the position, computed a second time from nothing but the men.
#pragma once

#include <string>

// Recomputes every variable that depends on the men from `Board` and `ColourBB` and tells the first
// one that differs, with both values; empty when all agree. With `severalKings` (a board set up
// with more than one king of a colour) any one of them may be the one in `PieceBB`, or none when
// that one has been taken.
std::string FirstDifferenceFromRecomputation(bool severalKings = false);
