// The static score of the position for its own sake, outside of any search.
#pragma once

#include <cstdint>

// Centipawns for the side to move, which counts as the root side meanwhile. Leaves the figures of
// the evaluation behind.
int32_t StaticScore();
