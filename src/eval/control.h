// What part of the board each side holds, and how near the kings are to the pawns.
#pragma once

#include "eval/side_view.h"

// Adds what both sides hold; their attacks must be there.
void EvaluateControl(SideView& white, SideView& black);
