// What the engine is doing when a line arrives.
#pragma once

enum Activity : unsigned {
    IDLE = 1,      // waiting for a command
    THINKING = 2,  // about its own move, or analysing
    PONDERING = 4, // about the answer to a predicted move
    WAITING = 8,   // in analysis, after a search that has found all there is to find
    SEARCHING = THINKING | PONDERING,
};

// Set by who starts and ends a search. A prediction that comes true turns pondering into thinking.
extern Activity CurrentActivity;
