#include "search/interrupts.h"

#include "search/limits.h"

constinit Move TypedMove = NO_MOVE;
constinit bool NewRequested = false;
constinit bool UndoRequested = false;
constinit bool ExitRequested = false;
constinit bool ResultReceived = false;
constinit bool PonderingOnPrediction = false;
constinit Move PredictedMove = NO_MOVE;

void ResetInterrupts() {
    TypedMove = PredictedMove = NO_MOVE;
    NewRequested = UndoRequested = ExitRequested = ResultReceived = PonderingOnPrediction = false;
}

bool MoveWanted() {
    return !NewRequested && !ResultReceived && !PonderingOnPrediction && !GoPonder && !Analysing;
}
