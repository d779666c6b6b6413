// What differs between the dialects that the engine is spoken to in: how it answers.
#pragma once

#include <string>

#include "board/types.h"
#include "search/host.h"

struct Dialect {
    void (*printResult)(const char* line); // of the game: mate, draw
    void (*printNote)(const char* line);   // for whoever reads along
    void (*printVariations)(BoundType bound, int line);
    void (*printCurrentMove)();
    void (*printStatistics)();
    void (*announceMove)(Move move, bool fromBook); // which has not been made yet
    void (*answerFinishedGame)();                   // there is no legal move
    // The search has ended and its move is not played, or not yet.
    void (*keepMove)(bool analysisEnded);
    // The following are null where nothing is done, or what has always been done.
    void (*beginPondering)(Move prediction) = nullptr;     // which has not been made yet
    void (*refuseMove)(const std::string& text) = nullptr; // that cannot be played
    void (*refuseLine)(const std::string& text) = nullptr; // that is no command
    void (*showBoard)() = nullptr;
    void (*awaitLine)() = nullptr; // a line is going to be read
    bool keepsLastScore;  // over a new game or position: the opponent gives games move by move
    bool pondersByItself; // after its move; else only when told to
    bool person = false;  // at a terminal: no program reads along
};

// The dialect in use; a silent one until the first is entered.
extern const Dialect* Speaking;

// After what has changed the board.
void ShowBoardToPerson();
