#include "trial.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include "companions/processes/child_process.h"
#include "companions/processes/copied_directory.h"
#include "companions/processes/line_pipe.h"

namespace fs = std::filesystem;

namespace {

using Time = LinePipe::Clock;

constexpr size_t LINES_AT_ONCE = 100;
constexpr std::chrono::seconds START_TIME{20}; // with sanitizers, on a busy machine
constexpr const char* Answer = "readyok";
constexpr const char* NO_LINE = "\n"; // what never comes: reading goes on to the end

} // namespace

// Sends the text and waits for a line that ends with `answer`, before which a prompt may stand.
// False when the time is over before, or the engine has gone.
static bool Ask(LinePipe& pipe, std::string_view text, std::string_view answer,
                Time::time_point deadline) {
    if (!pipe.Send(text, deadline))
        return false;
    while (const std::optional<std::string> line = pipe.Next(deadline)) {
        if (line->ends_with(answer))
            return true;
    }
    return false;
}

// Waits for the end; false when it does not come in time.
static bool WaitForEnd(ChildProcess& process, Time::time_point deadline, int& status,
                       rusage& used) {
    while (!process.HasEnded(status, used)) {
        if (Time::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

static std::string EndOf(int status) {
    if (WIFSIGNALED(status))
        return std::string("killed by signal ") + std::to_string(WTERMSIG(status));
    return "ended with status " + std::to_string(WEXITSTATUS(status));
}

static std::string TextOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Sends all lines. True when all answers have come in time.
static bool SendLines(LinePipe& pipe, const Session& session, int patience, int& latest) {
    for (size_t i = 0; i < session.lines.size();) {
        std::string text;
        int allowed = 0;
        const size_t end = std::min(i + LINES_AT_ONCE, session.lines.size());
        for (; i < end; i++) {
            text += session.lines[i].text + "\n";
            allowed += session.lines[i].allowed;
        }
        // Points end what may be left of an editor, and the word an analysis that has found all
        // there is to find: it answers nothing.
        text += "\n.\n.\nexit\nisready\n";
        const auto start = Time::now();
        const auto limit = std::chrono::milliseconds(allowed + patience);
        if (!Ask(pipe, text, Answer, start + limit))
            return false;
        const auto took = std::chrono::floor<std::chrono::milliseconds>(Time::now() - start);
        latest = std::max(latest, int(took.count()) - allowed);
    }
    return true;
}

static Verdict Judge(ChildProcess& process, bool answered, const Trial& trial,
                     const std::string& errors) {
    Verdict verdict;
    int status = 0;
    rusage used = {};
    const auto deadline = Time::now() + std::chrono::milliseconds(trial.patience);
    const bool ended = WaitForEnd(process, deadline, status, used);
    verdict.details = TextOf(errors);
    verdict.memory = used.ru_maxrss / 1024;
    if (!verdict.details.empty())
        verdict.fault = "a report on the error output";
    else if (ended && status != 0)
        verdict.fault = EndOf(status);
    else if (ended && !answered)
        verdict.fault = "an early end";
    else if (!answered)
        verdict.fault = "no answer in time";
    else if (!ended)
        verdict.fault = "no end in time";
    else if (verdict.memory > trial.memory)
        verdict.fault = "too much memory";
    return verdict;
}

Verdict Hold(const Session& session, const Trial& trial) {
    const CopiedDirectory directory(trial.data);
    const std::string errors = directory.path + "/errors";
    std::ofstream(directory.path + "/Tarquelin.ini", std::ios::binary) << session.settings;
    ChildProcess process;
    if (const int error = process.Start(trial.engine, directory.path, errors); error != 0)
        return {trial.engine + ": " + std::strerror(error), "", 0, 0};
    LinePipe pipe(process);
    int latest = 0;
    const bool answered = Ask(pipe, "isready\n", Answer, Time::now() + START_TIME) &&
                          SendLines(pipe, session, trial.patience, latest);
    if (answered)
        Ask(pipe, "quit\n", NO_LINE, Time::now() + std::chrono::milliseconds(trial.patience));
    Verdict verdict = Judge(process, answered, trial, errors);
    verdict.latest = latest;
    return verdict;
}
