// The game at the board: who plays which side, and setting up, playing and taking back its moves.
#pragma once

#include "board/types.h"

// The engine makes no reply moves. Off at start; `go` and a new game clear it.
extern bool ForceMode;
// The side that the engine plays.
extern Colour EngineSide;
// The UCI dialect's output instead of xboard's. The command that enters the one leaves the other.
extern bool UciMode;
// A partner program leads the game: like UCI mode it keeps what the last search knew over `new`.
extern bool PartnerMode;
// The user allows thinking on the opponent's time.
extern bool PonderingSetting;
// Pondering is possible now: GUIs switch it with `hard` and `easy`.
extern bool PonderNow;
// Stored for the interface's sake.
extern bool DebugMode;
// Thinking output is wanted.
extern bool PostThinking;

// The starting position with the engine playing Black. Unless a partner program or UCI is at the
// other end, what earlier searches learned for move ordering is forgotten.
void NewGame();

// What one game taught is done with: the next may teach again.
void BeginLearningAnew();

// Gives the move to a side. What was played before cannot be taken back any more, since its records
// belong to the other turn; but a turn given back at once leaves the game as it was.
void GiveTurn(Colour side);

// Sets the position of a FEN up, for another game than the one before. UCI gives the games that
// begin from one position by position, so there the last search's score still counts. Text without
// a position does nothing.
void SetUpFen(const char* fen);

// Plays a legal move of the game.
void PlayMove(Move move);

// Takes back up to `plies` moves, none beyond the position that was set up.
void TakeBack(int plies);
