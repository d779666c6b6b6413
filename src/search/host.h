// What a search asks of whoever started it, and nothing about protocols.
//
// The front end fills the record once at start-up; until then every entry does nothing, so tests
// and the bench search in silence.
#pragma once

#include "board/score.h"
#include "board/types.h"

struct SearchHost {
    bool (*inputWaiting)();     // whether a line waits
    bool (*waitForInput)();     // sleeps until a line waits; false when none can come
    void (*handleInput)();      // acts on waiting lines; may set StopSearch
    void (*announceDraw)();     // before the root moves are generated
    void (*announceGameOver)(); // no legal root move: mate or stalemate
    // The best lines so far; the bound is that of root move `line`.
    void (*printVariations)(BoundType bound, int line);
    void (*printCurrentMove)(); // the root move at RootIndex is about to be searched
    void (*printStatistics)();  // periodic figures
    void (*announceMove)(Move move, bool fromBook); // the move to play, before it is made
    void (*withholdMove)(); // the search has ended and its move is not wanted, or not yet
};
extern SearchHost Host;
