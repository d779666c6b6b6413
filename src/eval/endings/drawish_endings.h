// Endings in which the side that is ahead wins less often than its score tells.
#pragma once

#include <cstdint>

// 256ths of a score from Black's view that are left in the position: 256 where nothing speaks for a
// draw, else the parameter of the kind of ending. Needs `Pawns` of the position and one
// king of each colour; with others 256.
int32_t DrawishScale(int32_t blackViewScore);
