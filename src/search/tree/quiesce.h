// The quiescence search: captures, promotions, evasions and checks until the position is quiet.
#pragma once

#include <cstdint>

// Score for the side to move within the window. The ply's record must know whether the side to
// move is in check.
int32_t Quiesce(int32_t alpha, int32_t beta);
