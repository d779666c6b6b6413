#include "book/position_learning.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "board/fen.h"
#include "board/moves/make_move.h"
#include "board/position.h"
#include "board/score.h"
#include "book/book_settings.h"
#include "book/learning_file.h"
#include "platform/files.h"

namespace {

// Scores in centipawns: a game below the first is going wrong, one that has kept above the second
// is not.
constexpr int32_t GOING_WRONG = -400;
constexpr int32_t HOLDING = -9;
// A score from between these bounds that falls by more than that is worth a note, when the search
// was deeper than so many plies.
constexpr int32_t NOT_YET_BAD = -180;
constexpr int32_t NO_LONGER_GOOD = 520;
constexpr int32_t FALL = 40;
constexpr int32_t SHALLOW = 6;
// Positions too late in the game, or with too few pieces, in pawn units, will hardly come again.
constexpr int LAST_NOTED_PLY = 100;
constexpr int LAST_NOTED_FIFTY_COUNT = 70;
constexpr int FEW_PIECES = 13;
constexpr int LAST_LOOKED_UP_PLY = 120;
// A game holds when so many of its latest searches say so.
constexpr size_t HOLDING_SEARCHES = 3;
// The engine's move before the last was chosen so many plies ago.
constexpr int PLIES_SINCE_CHOICE = 3;
// What the search adds at the root to the plies of its iteration, 1/60 ply.
constexpr int ROOT_EXTRA = ONE_PLY / 2;
constexpr size_t FEN_SIZE = 128; // bytes

struct NotedPosition {
    LearningKeys keys = {};
    Move move = NO_MOVE;
    int32_t oldScore = 0;
    int32_t newScore = 0;
    int32_t depth = 0; // 1/60 ply
    char fen[FEN_SIZE] = "";
};

constexpr int MAX_NOTED = 3;
constinit NotedPosition Noted[MAX_NOTED] = {};
constinit int NotedCount = 0;
// Where the latest stood in its game, and its key.
constinit int NotedPly = 0;
constinit uint64_t NotedKey = 0;
constinit int LoggedCount = 0; // lines of the log in this run

} // namespace

void ForgetNotedPositions() {
    NotedCount = 0;
}

static void Log(const char* what, const NotedPosition& noted) {
    if (!Book.LogLearningIntoFile)
        return;
    FILE* const file = OpenFile("learn.log", "a");
    if (file == nullptr)
        return;
    std::fprintf(file, "%d%c%s Depth = %d%cOldEvaluation = %d%cEvaluaton = %d%cFEN = %s\n",
                 LoggedCount++, '\t', what, noted.depth, '\t', noted.oldScore, '\t', noted.newScore,
                 '\t', noted.fen);
    std::fclose(file);
}

static void WriteNotedPositions() {
    for (int i = 0; i < NotedCount; i++) {
        const NotedPosition& noted = Noted[i];
        const LearnedPosition learned = {noted.depth, noted.newScore, noted.move};
        LearnedPosition before;
        if (const uint32_t offset = LookUpLearned(noted.keys, before); offset == 0) {
            Log("Add:", noted);
            AddLearned(noted.keys, learned);
        } else {
            Log("Refresh:", noted);
            RefreshLearned(offset, noted.keys, learned);
        }
    }
    ForgetNotedPositions();
}

static bool HasEnoughPieces() {
    return PhaseUnits[WHITE] > FEW_PIECES && PhaseUnits[BLACK] > FEW_PIECES;
}

// Notes the position on the board, where the engine chose its move before the last.
static void NotePosition(int32_t oldScore, int32_t newScore, int32_t depth) {
    if (!HasEnoughPieces() || FiftyCount >= LAST_NOTED_FIFTY_COUNT || Ply >= LAST_NOTED_PLY ||
        NotedCount == MAX_NOTED)
        return;
    const LearningKeys keys = LearningKeysOf(PosKey);
    LearnedPosition known;
    if (LookUpLearned(keys, known) != 0 && known.depth >= depth)
        return;
    NotedPosition& noted = Noted[NotedCount++];
    noted = {keys, UndoStack[Ply].move, oldScore, newScore, depth, ""};
    std::snprintf(noted.fen, FEN_SIZE, "%s", WriteFen().c_str());
    NotedPly = Ply;
    NotedKey = PosKey;
}

// Whether the game on the board has gone on from the one in which the latest was noted.
static bool NotedInThisGame() {
    return NotedCount > 0 && Ply > NotedPly + PLIES_SINCE_CHOICE &&
           UndoStack[NotedPly].posKey == NotedKey &&
           UndoStack[NotedPly].move == Noted[NotedCount - 1].move;
}

// Whether the searches were those of the engine's last two moves in this game: moves taken back,
// and other games since begun, break the row.
static bool BelongToGame(const SearchRecord& before, const SearchRecord& last) {
    return Ply - SetupPly >= PLIES_SINCE_CHOICE && UndoStack[Ply - 1].posKey == last.posKey &&
           UndoStack[Ply - PLIES_SINCE_CHOICE].posKey == before.posKey;
}

static bool ScoreFell(const SearchRecord& before, const SearchRecord& last, int32_t depth) {
    return !before.fromBook && !last.fromBook && before.score > NOT_YET_BAD &&
           last.score < NO_LONGER_GOOD && last.score - before.score < -FALL && depth > SHALLOW;
}

static void NoteFall(const SearchRecord& before, const SearchRecord& last, int32_t depth) {
    if (!ScoreFell(before, last, depth) || !BelongToGame(before, last))
        return;
    const int end = Ply;
    while (Ply > end - PLIES_SINCE_CHOICE)
        UnmakeMove();
    NotePosition(before.score, last.score, depth * ONE_PLY + ROOT_EXTRA);
    while (Ply < end)
        MakeMove(UndoStack[Ply].move, true);
}

static bool GameHolds(std::span<const SearchRecord> searches) {
    return searches.size() >= HOLDING_SEARCHES &&
           std::ranges::all_of(searches.last(HOLDING_SEARCHES),
                               [](const SearchRecord& s) { return s.score >= HOLDING; });
}

void LearnFromSearches(std::span<const SearchRecord> searches, int32_t depth) {
    if (!Book.PositionLearning || searches.empty())
        return;
    if (!NotedInThisGame())
        ForgetNotedPositions();
    const SearchRecord& last = searches.back();
    if (NotedCount > 0 && last.score < GOING_WRONG)
        WriteNotedPositions();
    else if (last.fromBook || GameHolds(searches))
        ForgetNotedPositions();
    if (searches.size() >= 2)
        NoteFall(searches[searches.size() - 2], last, depth);
}

bool LearnedEvaluation(int32_t depth, int32_t& evaluation) {
    if (Ply >= LAST_LOOKED_UP_PLY || !HasEnoughPieces())
        return false;
    LearnedPosition learned;
    if (LookUpLearned(LearningKeysOf(PosKey), learned) == 0 || learned.depth < depth)
        return false;
    // A damaged file may hold what no search has ever returned.
    if (std::abs(int64_t{learned.evaluation}) > MATE)
        return false;
    evaluation = learned.evaluation;
    return true;
}
