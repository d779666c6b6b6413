#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <poll.h>

#include "commands.h"
#include "companions/processes/growing_file.h"
#include "companions/processes/stop.h"
#include "companions/shared/labelled_position.h"
#include "companions/shared/progress.h"
#include "companions/shared/text_lines.h"
#include "uci_engine.h"

namespace {

constexpr int WAIT = 500; // milliseconds

// The file whose positions are judged.
class Source {
public:
    // False, with a message, when it cannot be opened.
    bool Open(const std::string& name) {
        path = name;
        return reader.Open(name.c_str());
    }
    // The next line that is a position; others are named and passed over.
    bool Next(std::string& line) {
        while (reader.Next(line) && reader.IsWhole()) {
            bytes += line.size() + 1;
            if (ReadLabelledPosition(line))
                return true;
            std::fprintf(stderr, "%s:%d: this is no labelled position\n", path.c_str(),
                         reader.Number());
        }
        return false;
    }
    // Of the lines so far.
    uint64_t Bytes() const {
        return bytes;
    }

private:
    std::string path;
    LineReader reader;
    uint64_t bytes = 0;
};

// A position on its way through an engine.
struct Judgement {
    std::string line;
    bool isDone = false;
};

// One engine and what it searches, if anything.
struct Judge {
    UciEngine engine;
    Judgement* task = nullptr;
};

class Court {
public:
    Court(const JudgeSettings& theSettings, Source& theSource, GrowingFile& theFile)
        : settings(theSettings), source(theSource), file(theFile) {}
    // Starts the engines. False, with a message, when one does not start.
    bool Start();
    // Has all positions judged, or goes on until a signal comes. False, with a message, when
    // something fails.
    bool Run();
    uint64_t Written() const {
        return written;
    }
    uint64_t Dropped() const {
        return dropped;
    }

private:
    bool GiveOut(Judge& judge);
    bool Listen();
    bool WriteDone();

    const JudgeSettings& settings;
    Source& source;
    GrowingFile& file;
    std::vector<std::unique_ptr<Judge>> judges;
    std::deque<Judgement> queue; // in the order of the source
    uint64_t written = 0;
    uint64_t dropped = 0;
};

} // namespace

bool Court::Start() {
    for (int i = 0; i < settings.threads; i++) {
        judges.push_back(std::make_unique<Judge>());
        if (!judges.back()->engine.Start(settings.engine))
            return false;
    }
    return true;
}

// The next position for an engine that has none, if there is one left.
bool Court::GiveOut(Judge& judge) {
    std::string line;
    if (judge.task != nullptr || !source.Next(line))
        return true;
    judge.task = &queue.emplace_back(Judgement{std::move(line)});
    return judge.engine.Search(ReadLabelledPosition(judge.task->line)->fen, settings.nodes);
}

// Whether a man stands on the square with that name, "e4".
static bool IsOccupied(std::string_view fen, std::string_view square) {
    char file = 'a';
    char rank = '8';
    for (const char c : fen.substr(0, fen.find(' '))) {
        if (c == '/') {
            file = 'a';
            rank--;
        } else if (c >= '1' && c <= '8') {
            file = char(file + (c - '0'));
        } else if (file++ == square[0] && rank == square[1]) {
            return true;
        }
    }
    return false;
}

// Neither a capture, but for one en passant, nor a promotion.
static bool IsQuiet(std::string_view fen, std::string_view move) {
    constexpr size_t plainMove = 4; // "e2e4"
    return move.size() == plainMove && !IsOccupied(fen, move.substr(2));
}

// The line with the engine's score in the place of the other; empty where it has none, or where the
// position is not quiet for it.
static std::string JudgedLine(const std::string& line, const UciEngine& engine) {
    const LabelledPosition position = *ReadLabelledPosition(line);
    const std::optional<int> score = engine.Score();
    if (!score || !IsQuiet(position.fen, engine.BestMove()))
        return {};
    const bool blackToMove = Split(position.fen, ' ')[1] == "b";
    return LabelledLine(position.fen, blackToMove ? -*score : *score, position.result,
                        position.seed);
}

// Waits until some engine says something, and takes it in.
bool Court::Listen() {
    std::vector<pollfd> outputs;
    for (const auto& judge : judges)
        outputs.push_back({judge->task != nullptr ? judge->engine.Output() : -1, POLLIN, 0});
    poll(outputs.data(), outputs.size(), WAIT);
    for (const auto& judge : judges) {
        if (judge->task == nullptr)
            continue;
        if (!judge->engine.Receive())
            return false;
        if (judge->engine.HasFinished()) {
            judge->task->line = JudgedLine(judge->task->line, judge->engine);
            judge->task->isDone = true;
            judge->task = nullptr;
        }
    }
    return true;
}

// Writes what no earlier position is waited for.
bool Court::WriteDone() {
    std::string lines;
    for (; !queue.empty() && queue.front().isDone; queue.pop_front()) {
        lines += queue.front().line;
        queue.front().line.empty() ? dropped++ : written++;
    }
    return file.Append(lines);
}

bool Court::Run() {
    std::error_code ignored;
    const auto begin = source.Bytes();
    Progress progress("judge", std::filesystem::file_size(settings.positions, ignored) - begin,
                      "positions");
    while (StopSignal() == 0) {
        for (const auto& judge : judges) {
            if (!GiveOut(*judge))
                return false;
        }
        if (queue.empty())
            return true;
        if (!Listen() || !WriteDone())
            return false;
        progress.Tell(source.Bytes() - begin, written + dropped);
    }
    return true;
}

static bool AreSamePosition(std::string_view line, std::string_view judged) {
    const LabelledPosition a = *ReadLabelledPosition(line);
    const std::optional<LabelledPosition> b = ReadLabelledPosition(judged);
    return b && a.fen == b->fen && a.result == b->result && a.seed == b->seed;
}

// Passes over the positions that have been judged before: those of the output, in their order, with
// gaps where some were dropped. False, with a message, when the output has others as well.
static bool PassOverJudged(Source& source, const GrowingFile& file, const std::string& output) {
    bool areAmong = true;
    std::string line;
    const auto find = [&](std::string_view judged, int64_t) {
        while (areAmong) {
            areAmong = source.Next(line);
            if (areAmong && AreSamePosition(line, judged))
                return;
        }
    };
    if (!file.ForEachLine(find))
        return false;
    if (!areAmong)
        std::fprintf(stderr, "%s has other positions than those to be judged\n", output.c_str());
    return areAmong;
}

int JudgePositions(const JudgeSettings& settings) {
    Source source;
    GrowingFile file;
    if (!source.Open(settings.positions) || !file.Open(settings.output, LABELLED_POSITIONS) ||
        !PassOverJudged(source, file, settings.output))
        return 1;
    NoteStopSignals();
    Court court(settings, source, file);
    const bool went = court.Start() && court.Run();
    ClearProgressLine();
    std::printf("%s: %" PRIu64 " positions added, %" PRIu64 " dropped\n", settings.output.c_str(),
                court.Written(), court.Dropped());
    if (StopSignal() != 0)
        return SIGNAL_STATUS + StopSignal();
    return went ? 0 : 1;
}
