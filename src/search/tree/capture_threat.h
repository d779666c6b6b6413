// Whether the side to move has a capture on the board that is better than passing.
#pragma once

#include <cstdint>

// Whether some capture of the side to move promises more than `margin` centipawns by the values of
// the two men alone, or wins a man worth more than that with a stronger one by exchange.
bool CaptureThreatens(int32_t margin);
