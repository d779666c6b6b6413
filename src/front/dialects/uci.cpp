#include "front/dialects/uci.h"

#include <cinttypes>
#include <cstdio>
#include <string>

#include "board/legal_moves.h"
#include "board/make_move.h"
#include "board/notation.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "eval/eval_cache.h"
#include "eval/personality.h"
#include "front/dialects/thinking.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "search/driver_state.h"
#include "search/hash_memory.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/transposition.h"
#include "tablebase/tablebases.h"

namespace {

// Nodes that must have passed since the last line of a variation.
constexpr int64_t VARIATION_NODES = 30000;
// Searches that have just begun print neither several lines nor, somewhat longer, statistics.
constexpr int64_t LINES_NODES = 50000;
constexpr int64_t STATISTICS_NODES = 200000;

// Node count at the last line; a lower count now means that a new search has begun.
constinit int64_t LastLineNodes = 0;

} // namespace

void EnterUci(const CommandLine& line) {
    // The line "ucinewgame" is answered in the same way, as its beginning is this keyword.
    if (BeginsWithKeyword("ucinewgame", line.text))
        BeginLearningAnew();
    std::puts("id name Tarquelin 1.40");
    std::puts("id author Ivor T. Penhallow");
    std::puts("option name Hash type spin min 0 max 1024 default 10");
    std::puts("option name PawnHash type spin min 0 max 1024 default 7");
    std::puts("option name NalimovPath type string default c:\\tablebases\\");
    std::puts("option name OpeningsBook type string default .\\book.tqn");
    std::puts("option name OwnBook type check default true");
    std::puts("option name NalimovCache type spin min 1 max 128 default 1");
    std::puts("option name MultiPV type spin min 1 max 1024 default 1");
    std::printf("option name Aggressivity type spin min 0 max 300 default %d\n", Aggressivity);
    std::printf("option name Defensivity type spin min 0 max 300 default %d\n", Cowardice);
    std::printf("option name Tropism type spin min 0 max 300 default %d\n", Tropism);
    std::puts("option name Clear Hash type button");
    std::puts("uciok");
    std::fflush(stdout);
    Interface.UciMode = true;
    SearchOptions.ForgetInShortSearches = true;
    Interface.PonderNow = false;
}

namespace {

// The value of an option: its first word, and the rest of the line from there on.
struct OptionValue {
    const std::string& word;
    std::string rest;

    int32_t Number() const {
        return ReadNumber(word);
    }
};

struct Option {
    const char* name;
    void (*set)(const OptionValue& value);
};

// Tried from top to bottom; a beginning of a name will do. Values are taken as they are: the bounds
// that are announced are advice to the interface.
constexpr Option Options[] = {
    {"Tropism", [](const OptionValue& value) { SetTropism(value.Number()); }},
    // Scores of the old personality must not come back.
    {"Aggressivity",
     [](const OptionValue& value) {
         SetAggressivity(value.Number());
         ClearEvalCache();
     }},
    {"Defensivity",
     [](const OptionValue& value) {
         SetCowardice(value.Number());
         ClearEvalCache();
     }},
    {"MultiPV", [](const OptionValue& value) { SearchOptions.MultiPV = value.Number(); }},
    {"Hash", [](const OptionValue& value) { ResizeHash(value.Number()); }},
    {"PawnHash", [](const OptionValue& value) { ResizePawnHash(value.Number()); }},
    {"NalimovCache",
     [](const OptionValue& value) {
         if (Tablebases.UseEgtb)
             ResizeEgtbCache(value.Number());
     }},
    {"Clear", [](const OptionValue&) { ClearHash(); }},
    {"OwnBook",
     [](const OptionValue& value) {
         if (KeywordMatches("false", value.word))
             Book.OwnBook = false;
         else if (KeywordMatches("true", value.word))
             Book.OwnBook = true;
     }},
    {"NalimovPath",
     [](const OptionValue& value) {
         if (!Tablebases.UseEgtb)
             return;
         SetEgtbPath(value.rest.c_str());
         OpenTablebases();
         AllocateTablebaseCache();
     }},
    {"OpeningsBook", [](const OptionValue& value) { OpenBook(value.rest.c_str()); }},
};

} // namespace

void SetOption(const CommandLine& line) {
    if (line.Arguments() < 3 || !KeywordMatches("name", line.tokens[1].text))
        return;
    const std::string& name = line.tokens[2].text;
    const std::string& third = line.tokens[3].text;
    // The only button has two words for its name, and no value.
    const bool button = KeywordMatches("Clear", name);
    if (!KeywordMatches(button ? "Hash" : "value", third) || (!button && line.Arguments() < 4))
        return;
    const Token& value = line.tokens[button ? 3 : 4];
    for (const Option& option : Options) {
        if (KeywordMatches(option.name, name)) {
            option.set({value.text, line.text.substr(value.offset)});
            return;
        }
    }
}

// Plays the moves that follow the word "moves", from token 2 on.
static void PlayListedMoves(const CommandLine& line) {
    int i = 2;
    while (i <= line.Arguments() && !KeywordMatches("moves", line.tokens[size_t(i)].text))
        i++;
    for (i++; i <= line.Arguments(); i++) {
        const std::string& text = line.tokens[size_t(i)].text;
        if (!HasMoveShape(text))
            continue;
        if (const Move move = MoveFromText(text); IsLegal(move))
            PlayMove(move);
    }
}

void SetUpPosition(const CommandLine& line) {
    Past.BestMove = NO_MOVE;
    if (line.Arguments() >= 1 && KeywordMatches("startpos", line.tokens[1].text)) {
        NewGame();
    } else if (line.Arguments() >= 1 && KeywordMatches("fen", line.tokens[1].text)) {
        const size_t fen = line.tokens[1].offset + line.tokens[1].text.size();
        SetUpFen(line.text.c_str() + fen);
    }
    if (line.Arguments() >= 3)
        PlayListedMoves(line);
}

// Prints a score, as a mate or in centipawns as `leader` is one. Every line of several takes after
// the first, so that an interface does not compare moves with centipawns.
static void PrintScore(int32_t score, int32_t leader) {
    if (leader > MATE_BOUND)
        std::printf("mate %d ", (MATE + 1 - score) >> 1);
    else if (leader < -MATE_BOUND)
        std::printf("mate -%d ", (score + MATE + 1) >> 1);
    else
        std::printf("cp %d ", score);
}

static int64_t NodesPerSecond() {
    const int elapsed = ElapsedTime();
    return elapsed < 1 ? 0 : Running.NodeCount * 100 / elapsed;
}

// Depth, score and figures of root move `index`, up to the end of "tbhits". The time is in
// hundredths, not in the thousandths of the protocol: interfaces have long been used to it.
static void PrintInfo(int index, BoundType bound) {
    LastLineNodes = Running.NodeCount;
    // The figures stand in this line; the next line of their own can wait.
    Running.InfoCountdown = StatisticsInterval();
    std::printf("depth %d seldepth %d score ", Running.IterationDepth + 1, Running.SelDepth);
    PrintScore(Root.moves[index].score, Root.moves[0].score);
    if (bound == BOUND_UPPER)
        std::printf("upperbound ");
    else if (bound == BOUND_LOWER)
        std::printf("lowerbound ");
    std::printf("nodes %" PRId64 " time %d hashfull %d nps %" PRId64 " tbhits %d",
                Running.NodeCount, ElapsedTime(), HashFull(), NodesPerSecond(),
                Running.TablebaseHits);
}

static void PrintRootIndex() {
    std::printf(" currmove %s currmovenumber %d", MoveText(MoveBeingSearched()).c_str(),
                Root.index + 1);
}

static bool TooSoon() {
    if (Running.NodeCount < LastLineNodes)
        LastLineNodes = 0;
    return Running.NodeCount - LastLineNodes <= VARIATION_NODES;
}

void PrintUciVariation(bool forced, BoundType bound) {
    if (!forced && TooSoon())
        return;
    std::printf("info ");
    PrintInfo(0, bound);
    std::printf(" pv");
    PrintVariationMoves(0);
    std::printf("\n");
    std::fflush(stdout);
}

void PrintUciVariations(BoundType bound, int line) {
    if (Running.NodeCount > 0 && Running.NodeCount <= LINES_NODES)
        return;
    for (int i = 0; i < LineCount(); i++) {
        std::printf("info multipv %d ", i + 1);
        PrintInfo(i, i == line ? bound : BOUND_EXACT);
        PrintRootIndex();
        std::printf(" pv");
        PrintVariationMoves(i);
        std::printf("\n");
    }
    std::fflush(stdout);
}

void PrintUciCurrentMove() {
    if (TooSoon())
        return;
    std::printf("info ");
    PrintInfo(0, BOUND_EXACT);
    PrintRootIndex();
    std::printf("\n");
    std::fflush(stdout);
}

void PrintUciStatistics() {
    if (Running.NodeCount > 0 && Running.NodeCount <= STATISTICS_NODES)
        return;
    std::printf("info nps %" PRId64 " nodes %" PRId64 " tbhits %d hashfull %d\n", NodesPerSecond(),
                Running.NodeCount, Running.TablebaseHits, HashFull());
    std::fflush(stdout);
}

// Whether the expected reply can be played after the move.
static bool PonderMoveFits(Move move) {
    MakeMove(move, true);
    const bool fits = Game.PonderMove != NO_MOVE && IsLegal(Game.PonderMove);
    UnmakeMove();
    return fits;
}

// Names the move, which has not been made yet, with the reply that is expected.
static void PrintBestMove(Move move) {
    std::printf("bestmove %s", MoveText(move).c_str());
    if (PonderMoveFits(move))
        std::printf(" ponder %s", MoveText(Game.PonderMove).c_str());
    std::printf("\n");
    std::fflush(stdout);
}

void AnnounceUciMove(Move move) {
    PrintUciVariation(true, BOUND_EXACT);
    PrintBestMove(move);
}

void PlayPonderedMove(const CommandLine&) {
    if (!Limits.GoPonder || !IsLegal(Past.BestMove))
        return;
    Limits.GoPonder = false;
    PrintBestMove(Past.BestMove);
    PlayMove(Past.BestMove);
}
