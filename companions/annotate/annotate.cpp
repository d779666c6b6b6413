#include "annotate.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
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
#include "companions/shared/files.h"
#include "companions/shared/progress.h"
#include "find.h"
#include "game_file.h"
#include "html_page.h"
#include "judging.h"
#include "openings.h"
#include "platform/version.h"
#include "selection.h"

namespace fs = std::filesystem;

namespace {

// The first line of the file that holds what has been searched so far: this, and what it was
// searched with.
constexpr std::string_view JOURNAL_HEAD = "tarquelin-annotate ";
constexpr FileKind JOURNAL = {"file of unfinished annotations",
                              [](std::string_view line) { return line.starts_with(JOURNAL_HEAD); }};

// The program itself. Where there is no such file, the number of the version has to do.
constexpr const char* THIS_PROGRAM = "/proc/self/exe";

// In the place of what was searched of a game that is not annotated.
constexpr const char* NOT_ANNOTATED = "-\n";

// What a process answers of a game that was looked for: positions, one of these, the line.
constexpr char FOUND = ' ';
constexpr char BROKEN = '!';
constexpr char OTHER_CHESS = '-';

class Annotator {
public:
    explicit Annotator(const Settings& theSettings) : settings(theSettings) {}
    // The exit status.
    int Run();

private:
    // Takes a game's answer, and returns how many positions were searched for it; nothing when it
    // cannot be written.
    using Taker = std::function<std::optional<uint64_t>(const std::string&)>;

    std::string JournalHead() const;
    bool OpenJournal();
    int DoAll(const std::function<std::string(size_t)>& job, const Taker& take);
    std::string Complaint(const AnnotatedGame& game, size_t number) const;
    void Judge(AnnotatedGame& game, Analysis analysis) const;

    int Annotate();
    std::string Search(size_t number) const;
    bool Write();
    void WriteGame(size_t number, std::string_view searched);

    int Find();
    std::string Look(size_t number) const;

    const Settings& settings;
    fs::path base; // of the outputs
    GameFile file;
    std::unique_ptr<Openings> openings;
    std::vector<size_t> wanted; // numbers of games, from 0
    GrowingFile journal;
    size_t done = 0; // of the wanted ones
    uint64_t broken = 0;
    std::FILE* pgn = nullptr;
    HtmlPage page;
};

} // namespace

static AnnotatedGame ReadGame(std::string_view source) {
    AnnotatedGame game;
    game.source = source;
    game.text = TakeApart(source);
    game.played = Replay(game.text, source);
    return game;
}

// Why and where a game is not annotated, as a line.
std::string Annotator::Complaint(const AnnotatedGame& game, size_t number) const {
    const std::string_view before = game.source.substr(0, game.played.faultPlace);
    const int64_t line = file.Games()[number].line + std::ranges::count(before, '\n');
    return settings.games + ":" + std::to_string(line) + ": game " + std::to_string(number + 1) +
           " is kept as it is: " + game.played.reason + "\n";
}

// What is known of the game once it has been searched.
void Annotator::Judge(AnnotatedGame& game, Analysis analysis) const {
    game.opening = openings->Find(game.played);
    game.analysis = std::move(analysis);
    game.judgement =
        JudgeGame(game.played, game.analysis, game.opening.bookPlies, game.text.Tag("Result"));
}

// Has processes do what is left, and takes their answers in the order of the games. Returns 0 when
// all are done, else the exit status.
int Annotator::DoAll(const std::function<std::string(size_t)>& job, const Taker& take) {
    NoteStopSignals();
    const size_t first = done;
    const size_t count = wanted.size() - first;
    Progress progress(settings.find ? "find" : "annotate", count, "positions", "games");
    const auto processes = int(std::min<size_t>(size_t(settings.threads), count));
    Workers workers(processes, count, [&](uint64_t i) { return job(wanted[first + i]); });
    uint64_t positions = 0;
    while (workers.Started() && done < wanted.size() && StopSignal() == 0) {
        progress.Tell(done - first, positions);
        if (const std::optional<std::string> answer = workers.Next()) {
            const std::optional<uint64_t> searched = take(*answer);
            if (!searched)
                return 1;
            positions += *searched;
            done++;
        } else if (workers.HaveFailed()) {
            std::fprintf(stderr, "A process has ended before its games were searched\n");
            return 1;
        }
    }
    ClearProgressLine();
    if (done == wanted.size())
        return 0;
    return StopSignal() != 0 ? SIGNAL_STATUS + StopSignal() : 1;
}

// Whatever changes what is found is in it; how many processes find it is not. Builds with the same
// number may search in different ways, and a file of values may have been written anew.
std::string Annotator::JournalHead() const {
    const Selection& selection = settings.selection;
    std::string words;
    for (const std::string& word : {settings.values, settings.tablebases, selection.from,
                                    selection.player, selection.result, selection.eco})
        words += word + "\n";
    for (const std::string& path : {std::string(THIS_PROGRAM), settings.values}) {
        std::vector<uint8_t> bytes;
        if (!path.empty() && !ReadWholeFile(path, bytes))
            words.append(bytes.begin(), bytes.end());
    }
    char text[200];
    std::snprintf(text, sizeof text, "%s%s %016" PRIx64 " %d %d %zx\n", JOURNAL_HEAD.data(),
                  VERSION, file.Fingerprint(), int(settings.limit.kind), settings.limit.amount,
                  std::hash<std::string>()(words));
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
    if (!same || lines - 1 > wanted.size())
        return journal.CutAt(0) && journal.Append(head);
    done = lines - 1;
    if (done > 0)
        std::printf("Going on behind %zu games\n", done);
    return true;
}

// The line of the journal for a game.
std::string Annotator::Search(size_t number) const {
    const std::string source = file.Text(file.Games()[number]);
    const AnnotatedGame game = ReadGame(source);
    if (game.played.kind != PlayedGame::CHESS)
        return NOT_ANNOTATED;
    return AnalysisText(Analyse(game.played, settings.limit)) + "\n";
}

// Whether all could be written is asked at the end.
void Annotator::WriteGame(size_t number, std::string_view searched) {
    const std::string source = file.Text(file.Games()[number]);
    AnnotatedGame game = ReadGame(source);
    std::optional<Analysis> analysis;
    if (game.played.kind == PlayedGame::CHESS)
        analysis = ReadAnalysis(searched);
    if (analysis && analysis->size() == game.played.moves.size() + 1) {
        Judge(game, std::move(*analysis));
        const std::string text = AnnotatedPgn(game);
        std::fwrite(text.data(), 1, text.size(), pgn);
        page.Add(game, number + 1);
        return;
    }
    if (game.played.kind == PlayedGame::CHESS)
        game.played.reason = "its searches are damaged";
    broken += game.played.kind != PlayedGame::OTHER_CHESS ? 1 : 0;
    std::fputs(Complaint(game, number).c_str(), stderr);
    page.AddKept(game.text, game.played.reason, number + 1);
    std::fwrite(source.data(), 1, source.size(), pgn);
}

static std::string HowSearched(const SearchLimit& limit) {
    const char* const units[] = {" nodes", " plies", " milliseconds"};
    return std::string("Annotated by Tarquelin ") + VERSION + ", " + std::to_string(limit.amount) +
           units[limit.kind] + " a position.";
}

// Both outputs, from what the journal holds. False, with a message, when one cannot be written.
bool Annotator::Write() {
    const std::string path = base.string() + ".pgn";
    const std::string unfinished = path + ".new";
    pgn = std::fopen(unfinished.c_str(), "wb");
    if (pgn == nullptr || !page.Open()) {
        std::perror(unfinished.c_str());
        return false;
    }
    size_t line = 0;
    bool written = journal.ForEachLine([&](std::string_view searched, int64_t) {
        if (line++ > 0)
            WriteGame(wanted[line - 2], searched);
    });
    written = std::ferror(pgn) == 0 && written;
    written = std::fclose(pgn) == 0 && written;
    if (!written || std::rename(unfinished.c_str(), path.c_str()) != 0) {
        std::perror(path.c_str());
        return false;
    }
    const std::string pagePath = base.string() + ".html";
    if (!page.Write(pagePath, fs::path(settings.games).filename().string(),
                    HowSearched(settings.limit)))
        return false;
    std::printf("%zu %s: %s, %s\n", wanted.size(), wanted.size() == 1 ? "game" : "games",
                path.c_str(), pagePath.c_str());
    return true;
}

int Annotator::Annotate() {
    if (!OpenJournal())
        return 1;
    const int status = DoAll([this](size_t number) { return Search(number); },
                             [this](const std::string& line) -> std::optional<uint64_t> {
                                 if (!journal.Append(line))
                                     return std::nullopt;
                                 return std::ranges::count(line, ' ') + 1;
                             });
    if (status != 0) {
        std::printf("Stopped behind %zu of %zu games; the same command goes on\n", done,
                    wanted.size());
        return status;
    }
    if (!Write())
        return 1;
    std::remove((base.string() + ".part").c_str());
    return broken > 0 ? 1 : 0;
}

std::string Annotator::Look(size_t number) const {
    const std::string source = file.Text(file.Games()[number]);
    AnnotatedGame game = ReadGame(source);
    if (game.played.kind != PlayedGame::CHESS)
        return std::string("0") + (game.played.kind == PlayedGame::BROKEN ? BROKEN : OTHER_CHESS) +
               Complaint(game, number);
    Judge(game, Analyse(game.played, settings.limit));
    return std::to_string(game.analysis.size()) + FOUND +
           FindLine(game, number + 1, file.Games()[number].line);
}

// Prints the lines as they come.
int Annotator::Find() {
    std::fputs(FIND_HEAD, stdout);
    const int status =
        DoAll([this](size_t number) { return Look(number); },
              [this](const std::string& answer) -> std::optional<uint64_t> {
                  const size_t kind = answer.find_first_not_of("0123456789");
                  broken += answer[kind] == BROKEN ? 1 : 0;
                  ClearProgressLine();
                  std::fputs(answer.c_str() + kind + 1, answer[kind] == FOUND ? stdout : stderr);
                  if (std::fflush(stdout) != 0)
                      return std::nullopt;
                  return std::strtoull(answer.c_str(), nullptr, 10);
              });
    return status != 0 ? status : broken > 0 ? 1 : 0;
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
        std::fprintf(stderr, "%s: there are no %sgames\n", settings.games.c_str(),
                     file.Games().empty() ? "" : "such ");
        return 1;
    }
    return settings.find ? Find() : Annotate();
}

int AnnotateGames(const Settings& settings) {
    return Annotator(settings).Run();
}
