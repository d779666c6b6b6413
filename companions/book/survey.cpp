// What the engine would play from a book, and where that leads.

#include <algorithm>
#include <cstdio>
#include <set>
#include <string>

#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "book_image.h"
#include "commands.h"
#include "sources/coordinates.h"
#include "sources/searched_positions.h"

namespace {

// What a damaged book leads to may have no end.
constexpr int LONGEST_LINE = 400; // plies

// A position after a move of the engine's.
struct Outcome {
    int score; // centipawns, for the engine
    std::string path;
};

// Plays all games that can arise when one side plays from the book as the engine does.
class Survey {
public:
    Survey(const BookImage& image, const SearchedPositions& known, const SurveySettings& how,
           Colour side)
        : book(image), searched(known), settings(how), engine(side) {}
    void Run();
    void Report();

private:
    void EngineMoves(const std::string& path);
    void OpponentMoves(const std::string& path);
    void NoteOutcome(const std::string& path, std::optional<int> scoreBefore);

    const BookImage& book;
    const SearchedPositions& searched;
    const SurveySettings& settings;
    Colour engine;
    std::set<BookKeys> seen;
    std::vector<Outcome> outcomes;
    uint64_t positions = 0; // in which the engine has a move
};

} // namespace

static int ScoreOf(const ImageMove& move) {
    const uint32_t all = move.Won() + move.Lost();
    return all == 0 ? 500 : int(move.Won() * 1000 / all);
}

// The moves of the position on the board that the engine may play.
static std::vector<ImageMove> PlayableMoves(const BookImage& book, int variety) {
    std::vector<ImageMove> moves;
    const std::optional<uint32_t> record = book.Find(KeysOfPosition());
    if (record)
        book.ReadNode(book.Record(*record).nodeOffset, moves);
    std::erase_if(moves, [](const ImageMove& move) {
        return move.statistics == BOOK_KILLED || LegalMoveBetween(move.from, move.to) == NO_MOVE;
    });
    int best = 0;
    for (const ImageMove& move : moves)
        best = std::max(best, ScoreOf(move));
    const int threshold = (100 - variety) * best / 100;
    std::erase_if(moves, [=](const ImageMove& move) { return ScoreOf(move) < threshold; });
    return moves;
}

// The position on the board follows a move of the engine's. Where it has not been searched, the
// move was the best one before, and the score is still the same.
void Survey::NoteOutcome(const std::string& path, std::optional<int> scoreBefore) {
    const std::optional<int> score = searched.Score(KeysOfPosition());
    if (score)
        outcomes.push_back({-*score, path});
    else if (scoreBefore)
        outcomes.push_back({*scoreBefore, path});
}

void Survey::EngineMoves(const std::string& path) {
    if (Ply >= LONGEST_LINE || !seen.insert(KeysOfPosition()).second)
        return;
    const std::optional<int> score = searched.Score(KeysOfPosition());
    const std::vector<ImageMove> moves = PlayableMoves(book, settings.variety);
    if (moves.empty() && score)
        outcomes.push_back({*score, path});
    positions += moves.empty() ? 0 : 1;
    for (const ImageMove& move : moves) {
        const std::string next = path + " " + SquaresText(move.from, move.to);
        MakeMove(LegalMoveBetween(move.from, move.to), true);
        NoteOutcome(next, score);
        OpponentMoves(next);
        UnmakeMove();
    }
}

void Survey::OpponentMoves(const std::string& path) {
    if (!seen.insert(KeysOfPosition()).second)
        return;
    const int start = MoveStackTop;
    const int end = start + GenerateLegalMoves();
    for (int i = start; i < end; i++) {
        const Move move = MoveStack[i].move;
        MakeMove(move, true);
        if (book.Find(KeysOfPosition()))
            EngineMoves(path + " " + SquaresText(From(move), To(move)));
        UnmakeMove();
    }
    MoveStackTop = start;
}

void Survey::Run() {
    SetStartPosition();
    if (engine == WHITE)
        EngineMoves("");
    else
        OpponentMoves("");
}

void Survey::Report() {
    std::printf("%llu positions in which it has a move as %s\n",
                static_cast<unsigned long long>(positions), engine == WHITE ? "White" : "Black");
    std::ranges::stable_sort(outcomes, {}, &Outcome::score);
    for (size_t i = 0; i < std::min(outcomes.size(), size_t(settings.worst)); i++)
        std::printf("  %d:%s\n", outcomes[i].score, outcomes[i].path.c_str());
}

static void PrintPlayable(const BookImage& book, int variety, const std::string& before) {
    std::printf("%-6s", before.c_str());
    for (const ImageMove& move : PlayableMoves(book, variety))
        std::printf(" %s %d%%", SquaresText(move.from, move.to).c_str(), ScoreOf(move) / 10);
    std::puts("");
}

// The first move, and the replies to every first move.
static void PrintFirstMoves(const BookImage& book, int variety) {
    SetStartPosition();
    PrintPlayable(book, variety, "first");
    const int start = MoveStackTop;
    const int end = start + GenerateLegalMoves();
    for (int i = start; i < end; i++) {
        const Move move = MoveStack[i].move;
        MakeMove(move, true);
        PrintPlayable(book, variety, SquaresText(From(move), To(move)));
        UnmakeMove();
    }
    MoveStackTop = start;
}

int SurveyBook(const SurveySettings& settings) {
    BookImage book;
    SearchedPositions searched;
    if (!book.Read(settings.book) || !ReadWeights(settings.weights, searched))
        return 1;
    PrintFirstMoves(book, settings.variety);
    for (const Colour side : {WHITE, BLACK}) {
        Survey survey(book, searched, settings, side);
        survey.Run();
        survey.Report();
    }
    return 0;
}
