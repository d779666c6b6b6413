// Generating the replies to a check.
#pragma once

// Appends all legal replies to the move stack, scored: king moves first, then captures of a single
// checker and moves between it and the king by knights, bishops, rooks, queens and pawns. The
// side to move must be in check.
void GenerateEvasions();
