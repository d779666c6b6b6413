// What a search is allowed: clocks, depth and nodes as the front end collected them.
#pragma once

#include "board/types.h"

constexpr int32_t NO_CLOCK = -1;
constexpr int32_t INFINITE_TIME = 999999999; // as own time: think until told to stop
constexpr int32_t UNLIMITED_DEPTH = 998;
constexpr int32_t DEFAULT_BASE_TIME = 1000;

// All times in hundredths of a second.
extern int32_t OwnTime;        // the engine's remaining time; NO_CLOCK, INFINITE_TIME or above 0
extern int32_t OpponentTime;   // NO_CLOCK or above 0
extern int32_t BaseTime;       // of a control period
extern int32_t MovesPerPeriod; // "level" moves a control, or moves to go; 0 for sudden death
extern int32_t OwnIncrement;
extern int32_t OpponentIncrement;
extern int32_t FixedTime; // for every move; 0 for none
extern int32_t DepthLimit;
extern int32_t NodeLimit; // 0 for none
// Without a clock, think as if BaseTime were left, so that a person always gets an answer. Set by
// a plain "go" or a typed move, cleared by a "go" with limits of its own.
extern bool PlayByBaseTime;
// Short searches start from an empty history: what the last one learned is not worth keeping to
// those who search anew for each move.
extern bool ForgetInShortSearches;
// Milliseconds that a move loses on its way to the opponent, taken off the remaining time. A
// setting of the user, 0 unless it is set.
extern int32_t MoveOverhead;
constexpr int32_t MAX_MOVE_OVERHEAD = 5000;
extern bool MovesToGo; // MovesPerPeriod counts the moves to the next control, not all of them

// Only these root moves are searched when there are any.
constexpr int MAX_SEARCH_MOVES = 256;
extern Move SearchMoves[MAX_SEARCH_MOVES];
extern int32_t SearchMoveCount;

extern bool GoPonder;   // think on the opponent's time until told otherwise
extern bool Analysing;  // the search serves analysis: no clock, no book
extern int32_t MultiPV; // lines to report; 1 and less is one

// Sets everything above to its value at process start.
void ResetLimits();

// A person who asks for a move gets one, whatever the last search was told to wait for: without a
// clock by the base time.
void AnswerByClock();
