// Draws that need no move to be searched.
#pragma once

// Fifty moves without a capture or pawn move, or a position of the line or of the game come
// again: once is enough, since a side that can repeat once can do so again.
bool DrawByHistory();

// Neither side can mate by any play: bare kings, or a lone minor piece.
bool DrawByMaterial();
