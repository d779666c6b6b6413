// What the men of each side do to those of the other: attacks that win something, or tie it down.
#pragma once

#include "eval/side_view.h"

// Adds the threats of both sides, whose attacks must be there.
void EvaluateThreats(SideView& white, SideView& black);
