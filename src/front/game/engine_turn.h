// The engine's turn: its search, its move, and pondering until the next one.
#pragma once

// Thinks about the position, announces the move and makes it. False when no move came of it: the
// game is over, or what arrived meanwhile made the move unwanted; it is for the caller to act on
// the interrupts.
bool ThinkAndMove();

// Whether the engine's own move, just made, has mated or drawn; tells it then. Never where results
// are left to the opponent to find.
bool GameHasEnded();

// Acts on the lines that wait as a search does. For those that end before they look at the input.
void ActOnWaitingLines();

// Takes the side to move and plays; then ponders and plays again, for as long as the opponent
// moves. A new game that was asked for meanwhile is set up.
void TakeTurn();

// Ponders on where a line had ended it, unless more lines wait or what they brought has changed the
// game.
void ResumePondering();

// Takes the turn to answer a move of the opponent: by the clock, whatever the last search was told.
void AnswerMove();
