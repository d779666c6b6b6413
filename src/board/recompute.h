// The incremental values of the position, computed a second time from nothing but the men.
//
// Asked by assertions and tests only: a program that is built without assertions has none of it.
#pragma once

#include <string>

// What boards may look like. A text can set up more than one king of a colour, of which then any
// or none is the one in `PieceBB`, or more than eight pawns, whose material signature is one of
// other men or, where it happens to be that number, none.
enum BoardKind { PLAYED_BOARD, ANY_BOARD };

// Recomputes every variable that depends on the men from `Board` and `ColourBB` and tells the first
// one that differs, with both values; empty when all agree.
std::string FirstDifferenceFromRecomputation(BoardKind kind = PLAYED_BOARD);

// For assertions: whether the position of any board agrees with its recomputation. Tells on the
// error output what does not.
bool PositionIsConsistent();

// The same for one placement in 16, picked by its key, and true for all others: what every make and
// unmake of a search can afford.
bool SampleIsConsistent();
