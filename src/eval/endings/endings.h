// Endings with so few men that their outcome is known better than their terms would tell.
#pragma once

#include <cstdint>
#include <optional>

// With fewer phase units than this on a side, the ending may be one whose outcome is known.
constexpr int32_t ENDING_UNITS = 9;

// The score of such an ending, centipawns from the view of the side to move: 0 or nearly so for
// draws; wins grow with the progress that is made and stay far below mate scores. Nothing for every
// other position. Meant for positions in which a side has fewer than ENDING_UNITS; correct
// in all.
std::optional<int32_t> EvaluateEnding();

// Cuts a score from Black's view to 0 where it favours a side that has not the men to win.
int32_t CapUnwinnable(int32_t blackViewScore);
