#include "search/limits.h"

constinit int32_t OwnTime = NO_CLOCK;
constinit int32_t OpponentTime = NO_CLOCK;
constinit int32_t BaseTime = DEFAULT_BASE_TIME;
constinit int32_t MovesPerPeriod = 0;
constinit int32_t OwnIncrement = 0;
constinit int32_t OpponentIncrement = 0;
constinit int32_t FixedTime = 0;
constinit int32_t DepthLimit = UNLIMITED_DEPTH;
constinit int32_t NodeLimit = 0;
constinit bool PlayByBaseTime = false;
constinit bool ForgetInShortSearches = false;
constinit int32_t MoveOverhead = 0;
constinit bool MovesToGo = false;
constinit Move SearchMoves[MAX_SEARCH_MOVES] = {};
constinit int32_t SearchMoveCount = 0;
constinit bool GoPonder = false;
constinit bool Analysing = false;
constinit int32_t MultiPV = 1;

void ResetLimits() {
    OwnTime = OpponentTime = NO_CLOCK;
    BaseTime = DEFAULT_BASE_TIME;
    MovesPerPeriod = 0;
    OwnIncrement = OpponentIncrement = 0;
    FixedTime = 0;
    DepthLimit = UNLIMITED_DEPTH;
    NodeLimit = 0;
    PlayByBaseTime = MovesToGo = ForgetInShortSearches = false;
    MoveOverhead = 0;
    SearchMoveCount = 0;
    GoPonder = Analysing = false;
    MultiPV = 1;
}

void AnswerByClock() {
    PlayByBaseTime = true;
    if (OwnTime == INFINITE_TIME)
        OwnTime = NO_CLOCK;
}
