// What passed pawns are worth among the pieces and kings around them.
#pragma once

#include <cstdint>

// Centipawns from Black's view.
struct PasserTerms {
    int32_t middlegame = 0;
    int32_t ending = 0;
};

// The worth of all passed pawns. Needs `Pawns` of the position.
PasserTerms EvaluatePassedPawns();
