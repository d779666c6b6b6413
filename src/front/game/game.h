// The game at the board: who plays which side, and setting up, playing and taking back its moves.
#pragma once

#include <memory>
#include <string>

#include "board/types.h"

struct GameState {
    bool ForceMode = false;    // the engine makes no reply moves
    Colour EngineSide = BLACK; // the side that it plays
    // The reply that it expects to its move: the second move of the variation printed last, then
    // that to the move announced; NO_MOVE when it knows none.
    Move PonderMove = NO_MOVE;
    // The line of a move that the opponent has played instead of the one pondered on; it is read
    // once the prediction has been taken back. Null for none.
    std::unique_ptr<const std::string> Reply;
    int32_t FirstMoveNumber = 1; // of the position that was set up
    bool AnalysisPaused = false; // a line has interrupted it; it goes on when that is done
    // Pondering that a line has interrupted, and where it stood.
    struct {
        bool wanted = false; // it is to go on when nothing has changed
        int32_t ply = 0;
        uint64_t posKey = 0;
        Move ponderMove = NO_MOVE;
    } Pause;
};
extern GameState Game;

// The starting position with the engine playing Black. Unless a partner program or UCI is at the
// other end, what earlier searches learned for move ordering is forgotten.
void NewGame();

// The same for a person or a GUI that says `new`; in modern manners the book may be taught again.
void BeginNewGame();

// Forgets what earlier searches learned for the next ones.
void ForgetEarlierSearches();

// What one game taught is done with: the next may teach again.
void BeginLearningAnew();

// Gives the move to a side. What was played before cannot be taken back any more, since its records
// belong to the other turn; but a turn given back at once leaves the game as it was.
void GiveTurn(Colour side);

// Sets the position of a FEN up, for another game than the one before. UCI gives the games that
// begin from one position by position, so there the last search's score still counts. Text without
// a position does nothing.
void SetUpFen(const char* fen);

// The number of the move that is to be made.
int MoveNumber();

// Plays a legal move of the game.
void PlayMove(Move move);

// Takes back up to `plies` moves, none beyond the position that was set up.
void TakeBack(int plies);
