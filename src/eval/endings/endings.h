// Endings with so few men that their outcome is known better than their terms would tell.
#pragma once

#include <cstdint>

// Recognises such an ending. True: `score` is final, centipawns from the view of the side to move,
// 0 or nearly so for draws; wins grow with the progress that is made and stay far below mate
// scores. False: `score` is untouched. Meant for positions in which a side has less than a queen's
// worth of pieces; correct in all.
bool EvaluateEnding(int32_t& score);

// Cuts a score from Black's view to 0 where it favours a side that has not the men to win.
int32_t CapUnwinnable(int32_t blackViewScore);
