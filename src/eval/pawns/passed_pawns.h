// What passed pawns are worth among the pieces and kings around them.
#pragma once

#include <cstdint>

// Adds the worth of all passed pawns to the two scores, centipawns from Black's view. Needs `Pawns`
// and `PassedPawns` of the position; nothing happens when neither side has a passed pawn.
void EvaluatePassedPawns(int32_t& middlegame, int32_t& ending);
