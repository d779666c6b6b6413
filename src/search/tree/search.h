// The main search: alpha-beta over full-width plies.
#pragma once

#include <cstdint>

// Score of the position for the side to move, between alpha and beta or a bound beyond one of them.
// `depth` in 1/60 ply, at least ONE_PLY. The ply's record must know whether the side to move is
// in check. Returns 0 at once, storing nothing, when StopSearch is set.
int32_t Search(int32_t alpha, int32_t beta, int32_t depth, bool nullAllowed);
