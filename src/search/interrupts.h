// What has arrived on the input while a search ran, for whoever started it.
//
// The host's input handler writes these and stops the search by StopSearch; who starts a search
// sets them back first and acts on them when it has ended.
#pragma once

#include "board/types.h"

extern Move TypedMove;      // a legal root move that was typed; NO_MOVE for none
extern bool NewRequested;   // a new game
extern bool UndoRequested;  // a move to be taken back
extern bool ExitRequested;  // the end of analysis
extern bool ResultReceived; // the interface has declared the game over

// The search is of the position after PredictedMove, which stands on the board but has not been
// played. Cleared when the opponent plays it: the search then goes on as the engine's own. Still
// set after the search, the prediction has failed or was given up.
extern bool PonderingOnPrediction;
extern Move PredictedMove;

// Sets everything above back. Called before each search, by who starts it.
void ResetInterrupts();

// Whether the move that the search has chosen is to be announced and played. Not so in analysis,
// while pondering, and when the game that it belongs to is over.
bool MoveWanted();
