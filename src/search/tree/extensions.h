// Which moves are searched deeper than the others, and by how much.
#pragma once

#include "board/types.h"

// The extension of a legal move in 1/60 ply, asked before it is made: a full ply in an open
// window, half a ply else, less for a recapture. `givesCheck` tells whether the move checks.
int32_t ExtensionOf(Move move, bool givesCheck, bool openWindow);
