// Which moves the main search leaves out near the horizon, because they can hardly lift the score
// to alpha any more.
#pragma once

#include "search/tree/node.h"

// Whether of a node's quiet moves only checks are worth being generated. The static evaluation must
// be known.
bool QuietMovesAreFutile(const Node& node);

// Whether a legal move that has not been made yet is left out. It gives no check; `order` is its
// order score, which of captures alone is looked at. Never the first move of a node, nor any in an
// open window, in check, near mate or when the opponent threatens it.
bool IsHopeless(const Node& node, Move move, Stage stage, int32_t order);
