#include "search/tree/driver.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "board/attackers.h"
#include "board/exchange.h"
#include "board/moves/make_move.h"
#include "board/moves/order_tables.h"
#include "board/position.h"
#include "book/book.h"
#include "book/book_choice.h"
#include "book/book_learning.h"
#include "book/book_settings.h"
#include "eval/eval_cache.h"
#include "eval/parameters/personality.h"
#include "platform/clock.h"
#include "search/hash_memory.h"
#include "search/host.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/poll.h"
#include "search/root.h"
#include "search/state.h"
#include "search/strength.h"
#include "search/time_allotment.h"
#include "search/transposition.h"
#include "search/tree/lesser_move.h"
#include "search/tree/ordering.h"
#include "search/tree/quiesce.h"
#include "search/tree/search.h"

namespace {

// Half-width of the first window around the last iteration's score, and how much wider the failing
// side is before it is opened, in centipawns.
constexpr int32_t ASPIRATION = 20;
constexpr int32_t ASPIRATION_STEP = 120;
// Extra depth of a root move: half a ply, and a whole one more for a check.
constexpr int32_t ROOT_EXTRA = 30;
constexpr int32_t ROOT_CHECK_EXTRA = 90;
constexpr int LAST_ITERATION = 99;
// Reductions hide a mate from iterations that are just deep enough for it.
constexpr int MATE_EXTRA_DEPTH = 8;
// Nodes between looks at the limit in a search that is told its nodes and nothing else.
constexpr int32_t FINE_POLL = 50;
// After this iteration and each later one comes a look at the clock.
constexpr int POLLED_ITERATION = 4;
// Nodes before the root move being searched is worth a line.
constexpr int64_t CURRENT_MOVE_NODES = 200000;
// Searches shorter than this, in centiseconds, count as short.
constexpr int32_t SHORT_SEARCH = 71;
// Half-width of the lazy window around score and material, in centipawns, and what every iteration
// adds to it.
constexpr int32_t LAZY_MARGIN = 200;
constexpr int32_t LAZY_STEP = 10;
// The window is shifted by a fifth of the score toward who is ahead, up to this.
constexpr int32_t LAZY_SHIFT = 150;
// A level is done with its search at once. It takes that part of the time allotted all the same,
// so that games against it have their pace, but no more hundredths than that.
constexpr int32_t LEVEL_TIME_PART = 4;
constexpr int32_t LEVEL_LONGEST_TIME = 300;

} // namespace

static bool ScoresLess(const RootEntry& a, const RootEntry& b) {
    return a.score < b.score;
}

static int32_t LazyShift(int32_t score) {
    return std::clamp(score / 5, -LAZY_SHIFT, LAZY_SHIFT);
}

// The window of the lazy material exit around what the scores of the best moves and the material
// say.
static void SetLazyWindow() {
    const auto [low, high] = std::minmax_element(Root.moves, Root.moves + LineCount(), ScoresLess);
    const int32_t material = Material[RootSide] - Material[ChangeSide(RootSide)];
    const int32_t margin = LAZY_MARGIN + LAZY_STEP * Running.IterationDepth;
    LazyLow = std::min(low->score, material) + LazyShift(low->score) - margin;
    LazyHigh = std::max(high->score, material) + LazyShift(high->score) + margin;
}

// Searches root move `i`, already made, in the window (low, high) from the root side's view.
static int32_t SearchRootChild(int i, int32_t low, int32_t high) {
    const int32_t extra = Root.moves[i].givesCheck ? ROOT_CHECK_EXTRA : ROOT_EXTRA;
    PlyStates[Running.SearchPly].inCheck = Root.moves[i].givesCheck;
    return -Search(-std::min(high, MATE), -std::max(low, -MATE),
                   ONE_PLY * Running.IterationDepth + extra, true);
}

// Takes in that root move `i`, already made, has a score outside its window.
static void ReportFail(int i, int32_t score, BoundType bound) {
    const Move move = RootMove(i);
    Running.RootUnsettled = i == 0;
    Root.moves[i].score = score;
    UnmakeMove();
    SetLazyWindow();
    Host.printVariations(bound, i);
    MakeMove(move, true);
}

// One of the best moves, in a window around its last score that opens in two steps on the side
// that fails. Leaves the score with the move unless the search was stopped before any was known.
static void SearchLine(int i) {
    const int32_t previous = Root.moves[i].score;
    int32_t low = std::max(previous - ASPIRATION, -MATE);
    int32_t high = std::min(previous + ASPIRATION, MATE);
    bool failedHigh = false;
    bool failedLow = false;
    for (;;) {
        const int32_t score = SearchRootChild(i, low, high);
        if (Running.StopSearch)
            return;
        if (score >= high && high < MATE) {
            high = failedHigh ? MATE : high + ASPIRATION_STEP;
            failedHigh = true;
            ReportFail(i, score, BOUND_LOWER);
        } else if (score <= low && low > -MATE) {
            low = failedLow ? -MATE : low - ASPIRATION_STEP;
            failedLow = true;
            ReportFail(i, score, BOUND_UPPER);
        } else {
            Root.moves[i].score = score;
            return;
        }
    }
}

// Any other move must first beat the last of the best in a null window; then its score is settled.
// Returns the place among the best that it has won, or its own.
static int SearchChallenger(int i) {
    const int last = LineCount() - 1;
    const int32_t worst = Root.moves[last].score;
    int32_t score = SearchRootChild(i, worst, worst + 1);
    if (Running.StopSearch || score <= worst)
        return i;
    MoveEntry(i, last);
    Root.moves[last].score = score;
    int place = RaiseByScore(last);
    Running.RootUnsettled = place == 0;
    const int32_t confirmed = SearchRootChild(place, score, score + ASPIRATION);
    if (Running.StopSearch)
        return place;
    if (confirmed > score && confirmed < score + ASPIRATION) {
        Root.moves[place].score = confirmed;
        return RaiseByScore(place);
    }
    score = SearchRootChild(place, -MATE, MATE);
    if (Running.StopSearch)
        return place;
    Root.moves[place].score = score;
    if (score > worst)
        return RaiseByScore(LowerByScore(place, last));
    // The open window took back what the null window had promised.
    MoveEntry(place, i);
    return i;
}

// One root move. False when the search was stopped in it.
static bool SearchRootMove(int i) {
    const int lines = LineCount();
    Root.index = i;
    if (i > 0 && Running.NodeCount > CURRENT_MOVE_NODES)
        Host.printCurrentMove();
    const int64_t nodesBefore = Running.NodeCount;
    MakeMove(RootMove(i), true);
    int place = i;
    if (i < lines)
        SearchLine(i);
    else
        place = SearchChallenger(i);
    UnmakeMove();
    // A new best move is in doubt until an iteration has begun with it and scored it again.
    Running.RootUnsettled = RootMove(0) != Running.LeadingMove;
    // The other entries keep their counts of the last iteration: what once cost much is looked at
    // early.
    if (place < lines || i == Root.count - 1)
        Root.moves[place].nodes = Running.NodeCount - nodesBefore;
    if (Running.StopSearch)
        return false;
    if (i < lines)
        RaiseByScore(i);
    // While the best moves are gone through anew, some of their scores are the last iteration's.
    if (place < lines && i >= lines - 1)
        Host.printVariations(BOUND_EXACT, 0);
    return true;
}

// The result is the root's own, so that a mate is counted from there when a later search meets it.
static void StoreRootResult() {
    Running.SearchPly = 0;
    HashStore(ONE_PLY * Running.IterationDepth + ROOT_CHECK_EXTRA, RootMove(0), Root.moves[0].score,
              BOUND_EXACT, false, 0);
    Running.SearchPly = 1;
}

// One iteration over all root moves. False when the search was stopped in it.
static bool SearchIteration() {
    Running.SelDepth = Running.IterationDepth + 1;
    Running.LeadingMove = RootMove(0);
    SetLazyWindow();
    const int lines = LineCount();
    for (int i = 0; i < Root.count; i++) {
        if (!SearchRootMove(i))
            return false;
        if (i == lines - 1)
            ReorderByNodes(lines);
    }
    StoreRootResult();
    return true;
}

// An only natural recapture needs no long thought, as long as it stays the best move.
static void LookForEasyMove() {
    const Move last = LastMove();
    const Move best = RootMove(0);
    Running.EasyMove = NO_MOVE;
    if (CapturedPiece(last) != EMPTY && CapturedPiece(best) != EMPTY && To(best) == To(last) &&
        SafeExchange(best))
        Running.EasyMove = best;
}

static bool MateInsideHorizon() {
    return std::abs(Root.moves[0].score) > MATE - (Running.IterationDepth - 1);
}

// The mate that was asked for has been found, or looked for well beyond its depth in vain.
static bool MateLimitReached() {
    if (Limits.MateLimit == 0)
        return false;
    return std::abs(Root.moves[0].score) >= MATE - 2 * Limits.MateLimit ||
           Running.IterationDepth >= 2 * Limits.MateLimit + MATE_EXTRA_DEPTH;
}

static void Deepen(int limitDepth) {
    Running.SearchPly = 1;
    for (Running.IterationDepth = 1; Running.IterationDepth <= LAST_ITERATION;
         Running.IterationDepth++) {
        if (!SearchIteration() || MateInsideHorizon() || MateLimitReached() ||
            Running.IterationDepth + 1 >= limitDepth)
            break;
        if (Running.IterationDepth >= POLLED_ITERATION)
            Running.PollCountdown = -1;
        if (Running.IterationDepth == POLLED_ITERATION - 1)
            LookForEasyMove();
    }
    Running.IterationDepth = std::min(Running.IterationDepth, LAST_ITERATION);
    Running.SearchPly = 0;
}

// What full strength has found out must not help a level below it.
static void ForgetFullStrength() {
    const bool level = HeldToLevel();
    if (level && Past.SearchedInFull)
        ClearHash();
    Past.SearchedInFull = !level;
}

// Sets the statistics and counters up for a new search.
static void SetUpSearch(bool keepHistory) {
    AgeOrdering(keepHistory);
    Running = {};
    Running.PollCountdown = Budget.PollReload;
    Running.InfoCountdown = StatisticsInterval();
    ForgetFullStrength();
    HashAge = int16_t(uint16_t(HashAge) + 1);
    SetRootSide(SideToMove);
    HashFilledCount = 0;
    MoveStackTop = 0;
    LazyLow = -MATE;
    LazyHigh = MATE;
}

// What the root moves are worth before the first iteration: the quiet score of the position.
static void ScoreRootMoves() {
    PlyStates[0].inCheck = InCheck(SideToMove);
    SetRootScores(Material[RootSide] - Material[ChangeSide(RootSide)]);
    SetLazyWindow();
    SetRootScores(Quiesce(-MATE, MATE));
    // It was no node of the search: nobody below has tried checks before him.
    PlyStates[0].flags = 0;
}

// Takes a move out of the book, when it may be asked and has one.
static bool TakeBookMove() {
    if (!BookIsOpen() || !Book.OwnBook || Limits.SearchMoveCount > 0 || BoardIsOnlyLookedAt())
        return false;
    if (HeldToLevel() && Ply >= 2 * AllowanceOfLevel().bookMoves)
        return false;
    const Move move = ChooseBookMove();
    if (move == NO_MOVE)
        return false;
    SetOnlyRootMove(move);
    Past.BestMove = move;
    Past.BestMoveFromBook = true;
    Past.SearchesSinceBook = 0;
    return true;
}

// The search proper, to `limitDepth`, where the book has nothing. Returns false when the game is
// over.
static bool SearchRoot(int limitDepth, bool keepHistory, bool useBook) {
    SetUpSearch(keepHistory);
    Past.BestMove = NO_MOVE;
    Past.BestMoveFromBook = false;
    if (useBook && TakeBookMove())
        return true;
    if (!PrepareRoot())
        return false;
    SortRootMoves();
    ScoreRootMoves();
    if (Root.count > (Limits.Analysing ? 0 : 1) && limitDepth >= 2)
        Deepen(limitDepth);
    Past.BestMove = RootMove(0);
    return true;
}

// For the time test of the next search.
static void RememberScore() {
    Past.LastScore = Root.moves[0].score;
    Past.LastScoreSide = RootSide;
    if (!Past.BestMoveFromBook)
        Past.SearchesSinceBook++;
}

// For the resignation rule and for learning.
static void RecordSearch() {
    if (Past.RecentSearchCount == SEARCH_RECORDS)
        std::copy(Past.RecentSearches + 1, Past.RecentSearches + SEARCH_RECORDS,
                  Past.RecentSearches);
    else
        Past.RecentSearchCount++;
    Past.RecentSearches[Past.RecentSearchCount - 1] = {Root.moves[0].score, PosKey,
                                                       Past.BestMoveFromBook};
}

// Whether the game goes on with the move that the search has chosen.
static bool MoveIsPlayed() {
    return MoveWanted() && !Interrupts.PredictionMissed && !BoardIsOnlyLookedAt();
}

static void LetTimePass() {
    if (!Budget.UnderClock)
        return;
    const int32_t time = std::min(Budget.TimeAllotted / LEVEL_TIME_PART, LEVEL_LONGEST_TIME);
    while (!Running.StopSearch && ElapsedTime() < time) {
        SleepBriefly();
        if (Host.inputWaiting())
            Host.handleInput();
    }
}

// Where a level is in force, brings its move to the first place. What was found while pondering is
// none: there the engine had its full strength. True when the move is a level's.
static bool ChooseByLevel(bool pondered, bool keepHistory) {
    if (!HeldToLevel() || !MoveIsPlayed())
        return false;
    if (pondered && !SearchRoot(Limits.DepthLimit, keepHistory, true))
        return false;
    if (!Past.BestMoveFromBook) {
        const bool stopped = std::exchange(Running.StopSearch, false) && !Running.LimitReached;
        MaySlip(AllowanceOfLevel());
        Running.StopSearch |= stopped;
        LetTimePass();
        Past.BestMove = RootMove(0);
    }
    return true;
}

bool Think() {
    Budget.SearchStart = ClockCentiseconds();
    AllotTime();
    const bool keepHistory =
        !SearchOptions.ForgetInShortSearches || Budget.TimeAllotted >= SHORT_SEARCH;
    const bool pondered = Limits.GoPonder;
    if (!SearchRoot(Limits.DepthLimit, keepHistory, true))
        return false;
    HoldUntilStopped();
    const bool byLevel = ChooseByLevel(pondered, keepHistory);
    if (byLevel)
        TeachBookNoMore();
    const bool counts = !SearchOptions.OnlyPlayedMovesTeach || MoveIsPlayed();
    if (counts)
        RememberScore();
    if (!MoveWanted()) {
        Host.withholdMove();
        return false;
    }
    if (counts)
        RecordSearch();
    Host.announceMove(Past.BestMove, Past.BestMoveFromBook);
    if (counts && !Past.BestMoveFromBook)
        LearnBookFromScore(Root.moves[0].score);
    MakeMove(Past.BestMove, true);
    if (counts && !byLevel)
        LearnFromSearches({Past.RecentSearches, size_t(Past.RecentSearchCount)},
                          Running.IterationDepth);
    return true;
}

Move SearchFixedDepth(int maxDepth) {
    Budget = {};
    Budget.SearchStart = ClockCentiseconds();
    return SearchRoot(maxDepth, true, false) ? Past.BestMove : NO_MOVE;
}

Move SearchFixedNodes(int32_t nodes) {
    Budget = {};
    Budget.SearchStart = ClockCentiseconds();
    Budget.PollReload = FINE_POLL;
    const int32_t usersLimit = std::exchange(Limits.NodeLimit, nodes);
    const bool found = SearchRoot(UNLIMITED_DEPTH, true, false);
    Limits.NodeLimit = usersLimit;
    return found ? Past.BestMove : NO_MOVE;
}

void ClearSearchMemory() {
    ClearAllHashTables();
    ClearHistory();
    ClearEvasionReplies();
    ClearCaptureStats();
    ClearPlyStates();
}
