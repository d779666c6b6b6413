// The end of the game: whether the position is drawn or decided, and how that is announced.
#pragma once

// Finds the draws that stand on the board before a move is generated: insufficient material,
// repetition, fifty moves.
void FindDraws();

// Announces the draws that were found last, once. Announcing does not end the game: the engine
// plays on if asked.
void AnnounceDraws();

// Announces that the side to move has no legal move: mate or stalemate.
void AnnounceGameOver();
