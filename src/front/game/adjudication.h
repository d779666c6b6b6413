// The end of the game: whether the position is drawn or decided, and how that is announced.
#pragma once

// Finds the draws that stand on the board before a move is generated: insufficient material,
// repetition, fifty moves.
void FindDraws();

// Announces the draws that were found last, once. Announcing does not end the game: the engine
// plays on if asked.
void AnnounceDraws();

// Lets a draw that was announced teach the opening book, once, and forgets one that was found but
// not announced: a prediction that has failed. The position on the board must be the game's: in
// the middle of a search it has to wait.
void LearnAnnouncedDraw();

// Announces that the side to move has no legal move, mate or stalemate, and lets the opening book
// learn a draw from it, from a mate as well.
void AnnounceGameOver();

// After the engine's own move: announces that it has ended the game or drawn it, and lets the book
// learn from that. False when the game goes on.
bool AnnounceOwnResult();
