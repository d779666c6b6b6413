#include "search/interrupts.h"

#include "search/limits.h"

constinit SearchInterrupts Interrupts;

bool MoveWanted() {
    return !Interrupts.NewRequested && !Interrupts.ForceRequested && !Interrupts.ResultReceived &&
           !Interrupts.PonderingOnPrediction && !Limits.GoPonder && !Limits.Analysing;
}
