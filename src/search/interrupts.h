// What has arrived on the input while a search ran, for whoever started it.
//
// The host's input handler writes it and stops the search by StopSearch; who starts a search sets
// it back first and acts on it when the search has ended.
#pragma once

#include "board/types.h"

struct SearchInterrupts {
    Move TypedMove = NO_MOVE;    // a legal root move that was typed
    bool NewRequested = false;   // a new game
    bool ForceRequested = false; // the engine is to play neither side
    bool UndoRequested = false;  // a move to be taken back
    bool ExitRequested = false;  // the end of analysis
    bool ResultReceived = false; // the interface has declared the game over
    // The search is of the position after PredictedMove, which stands on the board but has not been
    // played. Cleared when the opponent plays it: the search then goes on as the engine's own.
    // Still set after the search, the prediction has failed or was given up.
    bool PonderingOnPrediction = false;
    Move PredictedMove = NO_MOVE;
    // The search was told to ponder, and was ended by who had told it: its position never arose.
    bool PredictionMissed = false;
};
extern SearchInterrupts Interrupts;

// Whether the move that the search has chosen is to be announced and played. Not so in analysis,
// while pondering, when the engine is to play neither side, and when the game that it belongs to is
// over.
bool MoveWanted();
