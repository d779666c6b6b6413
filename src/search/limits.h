// What a search is allowed: clocks, depth and nodes as the front end collected them.
//
// Three records, by who sets them back: the game's clock is forgotten by a `go` with parameters of
// its own, the limits by every new game, the options by nobody.
#pragma once

#include "board/types.h"

constexpr int32_t NO_CLOCK = -1;
constexpr int32_t INFINITE_TIME = 999999999; // as own time: think until told to stop
constexpr int32_t UNLIMITED_DEPTH = 998;
constexpr int32_t DEFAULT_BASE_TIME = 1000;

// All times in hundredths of a second.
struct GameClock {
    int32_t OwnTime = NO_CLOCK;           // the engine's remaining time; INFINITE_TIME or above 0
    int32_t OpponentTime = NO_CLOCK;      // or above 0
    int32_t BaseTime = DEFAULT_BASE_TIME; // of a control period
    int32_t MovesPerPeriod = 0; // "level" moves a control, or moves to go; 0 for sudden death
    bool MovesToGo = false;     // they count the moves to the next control, not all of them
    int32_t OwnIncrement = 0;
    int32_t OpponentIncrement = 0;
    // Without a clock, think as if BaseTime were left, so that a person always gets an answer. Set
    // by a plain "go" or a typed move, cleared by a "go" with limits of its own.
    bool PlayByBaseTime = false;
};
extern GameClock Clock;

constexpr int MAX_SEARCH_MOVES = 256;

struct SearchLimits {
    int32_t FixedTime = 0; // for every move, in hundredths; 0 for none
    int32_t DepthLimit = UNLIMITED_DEPTH;
    int32_t NodeLimit = 0; // 0 for none
    int32_t MateLimit = 0; // a mate in so many moves, for either side, is enough; 0 for none
    // Only these root moves are searched when there are any.
    int32_t SearchMoveCount = 0;
    Move SearchMoves[MAX_SEARCH_MOVES] = {};
    bool GoPonder = false;  // think on the opponent's time until told otherwise
    bool Analysing = false; // the search serves analysis: no clock, no book
};
extern SearchLimits Limits;

constexpr int32_t MAX_MOVE_OVERHEAD = 5000;

// What the user, or the dialect that he speaks, wants of every search.
struct SearchSettings {
    int32_t MultiPV = 1; // lines to report; 1 and less is one
    // Milliseconds that a move loses on its way to the opponent, taken off the remaining time, and
    // off a fixed one.
    int32_t MoveOverhead = 0;
    // Short searches start from an empty history: what the last one learned is not worth keeping to
    // those who search anew for each move.
    bool ForgetInShortSearches = false;
    // A search with a limit of nodes looks at it every thousand of them.
    bool FinePolls = false;
    // A search whose move is not going to be played leaves no traces in learning and clock.
    bool OnlyPlayedMovesTeach = false;
    // The interface analyses: searches have no book and no level, and leave no traces, whatever
    // their limits are.
    bool AnalyseMode = false;
};
extern SearchSettings SearchOptions;

// Whether searches serve somebody who looks at the board, and not a game: by analysis, without a
// limit, or because the interface says so.
bool BoardIsOnlyLookedAt();

// A person who asks for a move gets one, whatever the last search was told to wait for: without a
// clock by the base time.
void AnswerByClock();
