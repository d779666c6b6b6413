#include "analysis.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <limits>

#include "board/attackers.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "board/score.h"
#include "companions/shared/engine_start.h"
#include "companions/shared/text_lines.h"
#include "eval/parameters/values_file.h"
#include "search/hash_memory.h"
#include "search/host.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/tree/draws.h"
#include "search/tree/driver.h"
#include "search/variation.h"
#include "tablebase/tablebases.h"

namespace {

using Clock = std::chrono::steady_clock;

// Small tables are cleared sooner, and searches of some thousand nodes fill no others.
constexpr int32_t SMALL_HASH_ENTRIES = 65536;
constexpr int32_t SMALL_PAWN_ENTRIES = 8192;
constexpr int32_t SMALL_EVALUATIONS = 16384;

// Plies that are searched in any case.
constexpr int LEAST_DEPTH = 2;

// What the program carries within it, whatever lies where it is started.
constexpr const char* NO_FILE = "/dev/null/none";

// What the running search has told last, and when it is to end.
struct Listening {
    Verdict told;
    bool timed = false;
    Clock::time_point end;
};
constinit Listening Heard = {};

} // namespace

// A score that a line of the search is known to have; bounds are passed over.
static void HearVariation(BoundType bound, int) {
    if (bound != BOUND_EXACT || Ply != Root.gamePly)
        return;
    Move moves[MAX_VARIATION];
    const int count = CollectVariation(0, moves);
    Heard.told.score = Root.moves[0].score;
    Heard.told.depth = Running.IterationDepth + 1;
    Heard.told.line.assign(moves, moves + count);
}

static bool TimeIsUp() {
    return Heard.timed && Clock::now() >= Heard.end;
}

bool StartEngine(const std::string& values, const std::string& tablebases, bool smallTables) {
    if (values.empty())
        LoadParameters(NO_FILE);
    else if (!ReadValues(values))
        return false;
    StartTables();
    if (smallTables) {
        TranspositionCount = SMALL_HASH_ENTRIES;
        PawnHashCount = SMALL_PAWN_ENTRIES;
        EvalCacheCount = SMALL_EVALUATIONS;
    }
    AllocateHashTables();
    if (!tablebases.empty()) {
        SetEgtbPath(tablebases.c_str());
        OpenTablebases();
        AllocateTablebaseCache();
    }
    // A position with one legal move is searched like others.
    Limits.Analysing = true;
    Host.printVariations = HearVariation;
    Host.inputWaiting = TimeIsUp;
    Host.handleInput = [] { Running.StopSearch = true; };
    return true;
}

// For the side to move.
static Verdict Search(const SearchLimit& limit) {
    Heard = {};
    switch (limit.kind) {
    case SearchLimit::NODES:
        SearchFixedNodes(limit.amount);
        break;
    case SearchLimit::DEPTH:
        SearchFixedDepth(limit.amount);
        break;
    case SearchLimit::TIME:
        // The search looks at a limit of nodes, and so at the time, every few nodes.
        Heard.timed = true;
        Heard.end = Clock::now() + std::chrono::milliseconds(limit.amount);
        SearchFixedNodes(std::numeric_limits<int32_t>::max());
        break;
    }
    // Stopped before any move had a score: what stands with the first one may be no more than a
    // bound.
    if (Heard.told.line.empty()) {
        Heard.timed = false;
        SearchFixedDepth(LEAST_DEPTH);
    }
    if (Heard.told.line.empty())
        Heard.told = {Root.moves[0].score, 1, false, {RootMove(0)}};
    return std::move(Heard.told);
}

// What needs no table is as exact as what stands in one.
static void AskTablebases(Verdict& verdict) {
    int32_t score = 0;
    if (CastleRights != 0 || MenCount > LargestTablebase() ||
        (!DrawByMaterial() && ProbeTablebase(SideToMove, score) == 0))
        return;
    verdict.score = score;
    verdict.exact = true;
}

static Verdict Judge(const SearchLimit& limit) {
    Verdict verdict;
    if (!HasLegalMove()) {
        verdict.score = InCheck(SideToMove) ? -MATE : 0;
    } else {
        verdict = Search(limit);
        AskTablebases(verdict);
    }
    if (SideToMove == BLACK)
        verdict.score = -verdict.score;
    return verdict;
}

// What the played move has led to is known of the position before it too: nobody has less than the
// best that was found, here or one move later.
static void TakeInReply(Verdict& before, const Verdict& after, Move played, Colour side) {
    // A mate is a ply farther away.
    const int score = after.score > MATE_BOUND    ? after.score - 1
                      : after.score < -MATE_BOUND ? after.score + 1
                                                  : after.score;
    if (before.exact || (side == WHITE ? score <= before.score : score >= before.score))
        return;
    before.score = score;
    before.depth = std::max(before.depth, after.depth);
    before.line = {played};
    before.line.insert(before.line.end(), after.line.begin(), after.line.end());
}

// From the end to the start, so that each search finds what became of the game in the table.
Analysis Analyse(const PlayedGame& game, const SearchLimit& limit) {
    ClearSearchMemory();
    SetUpStart(game);
    for (const Move move : game.moves)
        MakeMove(move, true);
    Analysis analysis(game.moves.size() + 1);
    for (size_t i = analysis.size(); i-- > 0;) {
        analysis[i] = Judge(limit);
        if (i < game.moves.size())
            TakeInReply(analysis[i], analysis[i + 1], game.moves[i], SideToMove);
        if (i > 0)
            UnmakeMove();
    }
    return analysis;
}

std::string AnalysisText(const Analysis& analysis) {
    std::string text;
    for (const Verdict& verdict : analysis) {
        text += text.empty() ? "" : " ";
        text += std::to_string(verdict.score) + "," + std::to_string(verdict.depth) + "," +
                (verdict.exact ? "1" : "0");
        for (const Move move : verdict.line)
            text += "," + std::to_string(move);
    }
    return text;
}

template <typename Number> static bool ReadNumber(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stopped == end;
}

static std::optional<Verdict> ReadVerdict(std::string_view text) {
    const std::vector<std::string_view> fields = Split(text, ',');
    Verdict verdict;
    if (fields.size() < 3 || !ReadNumber(fields[0], verdict.score) ||
        !ReadNumber(fields[1], verdict.depth) || (fields[2] != "0" && fields[2] != "1"))
        return std::nullopt;
    verdict.exact = fields[2] == "1";
    for (size_t i = 3; i < fields.size(); i++) {
        Move move = NO_MOVE;
        if (!ReadNumber(fields[i], move) || (move & ~MOVE_MASK) != 0)
            return std::nullopt;
        verdict.line.push_back(move);
    }
    return verdict;
}

std::optional<Analysis> ReadAnalysis(std::string_view text) {
    Analysis analysis;
    for (const std::string_view word : Split(text, ' ')) {
        std::optional<Verdict> verdict = ReadVerdict(word);
        if (!verdict)
            return std::nullopt;
        analysis.push_back(std::move(*verdict));
    }
    return analysis;
}
