// The slip of a weaker player: a move that looks good enough at first sight.
#pragma once

#include "search/strength.h"

// After a search: now and then, by chance, makes one of the lesser root moves the best, with the
// score that it seems to have. It is one whose captures and checks, followed to their end, leave
// the side to move not much worse than the move that looks best so, and less likely the worse it
// is. A forced mate is neither missed nor walked into.
void MaySlip(const Allowance& allowance);
