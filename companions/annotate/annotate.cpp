#include "annotate.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "annotated_pgn.h"
#include "companions/processes/growing_file.h"
#include "companions/processes/stop.h"
#include "companions/processes/workers.h"
#include "companions/shared/progress.h"
#include "game_file.h"
#include "judging.h"
#include "openings.h"
#include "platform/files.h"
#include "platform/version.h"
#include "selection.h"

namespace fs = std::filesystem;

namespace {

// The first line of the file that holds what has been searched so far: this, and what it was
// searched with.
constexpr std::string_view JOURNAL_HEAD = "tarquelin-annotate ";
constexpr FileKind JOURNAL = {"file of unfinished annotations",
                              [](std::string_view line) { return line.starts_with(JOURNAL_HEAD); }};

// In the place of what was searched of a game that is not annotated.
constexpr std::string_view NOT_ANNOTATED = "-";

class Annotator {
public:
    explicit Annotator(const Settings& theSettings) : settings(theSettings) {}
    int Run();

private:
    std::string JournalHead() const;
    bool OpenJournal();
    std::string Search(size_t game) const;
    int SearchAll();
    int Write();
    bool WriteGame(size_t number, std::string_view found);

    const Settings& settings;
    fs::path base; // of the outputs
    GameFile file;
    std::unique_ptr<Openings> openings;
    std::vector<size_t> wanted;
    GrowingFile journal;
    size_t searched = 0; // of the wanted ones
    uint64_t broken = 0;
    std::FILE* pgn = nullptr;
};

} // namespace

// Whatever changes what is found is in it; how many processes find it is not.
std::string Annotator::JournalHead() const {
    char text[200];
    std::snprintf(
        text, sizeof text, "%s%s %016" PRIx64 " %d %d %zu\n", JOURNAL_HEAD.data(), VERSION,
        file.Fingerprint(), int(settings.limit.kind), settings.limit.amount,
        std::hash<std::string>()(settings.values + "\n" + settings.tablebases + "\n" +
                                 settings.selection.from + "\n" + settings.selection.player + "\n" +
                                 settings.selection.result + "\n" + settings.selection.eco));
    return text;
}

bool Annotator::OpenJournal() {
    const std::string head = JournalHead();
    size_t lines = 0;
    bool same = false;
    const auto look = [&](std::string_view line, int64_t) {
        if (lines++ == 0)
            same = line == std::string_view(head).substr(0, head.size() - 1);
    };
    if (!journal.Open(base.string() + ".part", JOURNAL) || !journal.ForEachLine(look))
        return false;
    if (lines > 0 && same && lines - 1 <= wanted.size()) {
        searched = lines - 1;
        if (searched > 0)
            std::printf("Going on behind %zu games\n", searched);
        return true;
    }
    return journal.CutAt(0) && journal.Append(head);
}

// The line of the journal for a game.
std::string Annotator::Search(size_t game) const {
    const std::string source = file.Text(file.Games()[game]);
    const PlayedGame played = Replay(TakeApart(source), source);
    if (played.kind != PlayedGame::CHESS)
        return std::string(NOT_ANNOTATED) + "\n";
    return AnalysisText(Analyse(played, settings.limit)) + "\n";
}

int Annotator::SearchAll() {
    NoteStopSignals();
    const size_t first = searched;
    const size_t count = wanted.size() - first;
    Progress progress("annotate", count, "positions", "games");
    Workers workers(std::min(settings.threads, int(std::max<size_t>(count, 1))), count,
                    [&](uint64_t i) { return Search(wanted[first + i]); });
    uint64_t positions = 0;
    while (workers.Started() && searched < wanted.size() && StopSignal() == 0) {
        progress.Tell(searched - first, positions);
        if (const std::optional<std::string> line = workers.Next()) {
            if (!journal.Append(*line))
                return 1;
            searched++;
            positions += uint64_t(std::ranges::count(*line, ' ') + 1);
        } else if (workers.HaveFailed()) {
            std::fprintf(stderr, "A process has ended before its games were searched\n");
            return 1;
        }
    }
    ClearProgressLine();
    if (searched == wanted.size())
        return 0;
    if (StopSignal() == 0)
        return 1;
    std::printf("Stopped behind %zu of %zu games; the same command goes on\n", searched,
                wanted.size());
    return SIGNAL_STATUS + StopSignal();
}

static int64_t LineOf(const GamePiece& piece, std::string_view source, size_t place) {
    return piece.line + std::ranges::count(source.substr(0, place), '\n');
}

bool Annotator::WriteGame(size_t number, std::string_view found) {
    const GamePiece& piece = file.Games()[number];
    const std::string source = file.Text(piece);
    AnnotatedGame game;
    game.source = source;
    game.text = TakeApart(source);
    game.played = Replay(game.text, source);
    std::optional<Analysis> analysis;
    if (game.played.kind == PlayedGame::CHESS)
        analysis = ReadAnalysis(found);
    if (!analysis || analysis->size() != game.played.moves.size() + 1) {
        if (game.played.kind == PlayedGame::CHESS)
            game.played.reason = "its searches are damaged";
        broken += game.played.kind != PlayedGame::OTHER_CHESS ? 1 : 0;
        std::fprintf(stderr, "%s:%" PRId64 ": game %zu is kept as it is: %s\n",
                     settings.games.c_str(), LineOf(piece, source, game.played.faultPlace),
                     number + 1, game.played.reason.c_str());
        return std::fwrite(source.data(), 1, source.size(), pgn) == source.size();
    }
    game.opening = openings->Find(game.played);
    game.analysis = std::move(*analysis);
    game.judgement =
        JudgeGame(game.played, game.analysis, game.opening.bookPlies, game.text.Tag("Result"));
    const std::string text = AnnotatedPgn(game);
    return std::fwrite(text.data(), 1, text.size(), pgn) == text.size();
}

int Annotator::Write() {
    const std::string path = base.string() + ".pgn";
    const std::string unfinished = path + ".new";
    pgn = std::fopen(unfinished.c_str(), "wb");
    if (pgn == nullptr) {
        std::perror(unfinished.c_str());
        return 1;
    }
    size_t line = 0;
    bool written = journal.ForEachLine([&](std::string_view found, int64_t) {
        if (line++ > 0 && line - 2 < wanted.size())
            WriteGame(wanted[line - 2], found);
    });
    written = std::ferror(pgn) == 0 && written;
    written = std::fclose(pgn) == 0 && written;
    if (!written || std::rename(unfinished.c_str(), path.c_str()) != 0) {
        std::perror(path.c_str());
        return 1;
    }
    std::remove((base.string() + ".part").c_str());
    std::printf("%s: %zu games\n", path.c_str(), wanted.size());
    return broken > 0 ? 1 : 0;
}

int Annotator::Run() {
    base = settings.output;
    if (settings.output.empty())
        base = fs::path(settings.games).replace_extension().string() + "-annotated";
    if (!file.Open(settings.games) ||
        !StartEngine(settings.values, settings.tablebases, settings.find))
        return 1;
    openings = std::make_unique<Openings>();
    wanted = SelectGames(file, settings.selection, *openings);
    if (wanted.empty()) {
        std::fprintf(stderr, "%s: there are no such games\n", settings.games.c_str());
        return 1;
    }
    if (!OpenJournal())
        return 1;
    const int status = SearchAll();
    return status != 0 ? status : Write();
}

int AnnotateGames(const Settings& settings) {
    return Annotator(settings).Run();
}
