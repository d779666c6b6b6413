// The incremental values of the position, computed a second time from nothing but the men.
#pragma once

#include <string>

// Recomputes every variable that depends on the men from `Board` and `ColourBB` and tells the first
// one that differs, with both values; empty when all agree. Where a colour has two kings, either
// may be the one in `PieceBB`, or none when it has been taken.
std::string FirstDifferenceFromRecomputation();
