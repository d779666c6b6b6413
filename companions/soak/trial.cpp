#include "trial.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include "companions/processes/child_process.h"

namespace fs = std::filesystem;

namespace {

using Time = std::chrono::steady_clock;

constexpr size_t LINES_AT_ONCE = 100;
constexpr std::chrono::seconds START_TIME{20}; // with sanitizers, on a busy machine
constexpr const char* Answer = "readyok";
constexpr const char* NO_LINE = "\n"; // what never comes: reading goes on to the end

class Directory {
public:
    explicit Directory(const std::string& data) {
        char name[] = "/tmp/tarquelin-soak-XXXXXX";
        path = mkdtemp(name) != nullptr ? name : "";
        std::error_code error;
        fs::copy(data, path, error);
    }
    ~Directory() {
        std::error_code error;
        fs::remove_all(path, error);
    }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    std::string path;
};

// The engine at the other end of the pipes. Both ends of it are served at once: one that cannot
// get rid of its output reads no input.
class Talk {
public:
    explicit Talk(const ChildProcess& child) : process(child) {
        fcntl(process.Input(), F_SETFL, O_NONBLOCK);
    }
    // Sends the text and waits for a line that is `answer`; false when the time is over before, or
    // the engine has gone.
    bool Ask(std::string_view text, std::string_view answer, Time::time_point deadline);

private:
    bool Read(std::string_view answer);

    const ChildProcess& process;
    std::string line; // that is arriving
    bool answered = false;
};

} // namespace

// False when there is nothing more to read.
bool Talk::Read(std::string_view answer) {
    char piece[1 << 14];
    const ssize_t count = read(process.Output(), piece, sizeof piece);
    if (count <= 0)
        return count < 0 && errno == EINTR;
    for (const char c : std::string_view(piece, size_t(count))) {
        if (c != '\n') {
            line += c;
            continue;
        }
        // A prompt may stand before it.
        answered = answered || line.ends_with(answer);
        line.clear();
    }
    return true;
}

bool Talk::Ask(std::string_view text, std::string_view answer, Time::time_point deadline) {
    answered = false;
    while (!answered) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Time::now());
        pollfd ends[] = {{process.Output(), POLLIN, 0}, {process.Input(), POLLOUT, 0}};
        if (left.count() <= 0 || poll(ends, text.empty() ? 1 : 2, int(left.count())) == 0)
            return false;
        if (ends[0].revents != 0 && !Read(answer))
            return false;
        if (ends[1].revents != 0 && !text.empty()) {
            const ssize_t count = write(process.Input(), text.data(), text.size());
            if (count < 0 && errno != EINTR && errno != EAGAIN)
                return false;
            text.remove_prefix(size_t(std::max<ssize_t>(count, 0)));
        }
    }
    return true;
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
static bool SendLines(Talk& talk, const Session& session, int patience, int& latest) {
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
        if (!talk.Ask(text, Answer, start + limit))
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
    const Directory directory(trial.data);
    const std::string errors = directory.path + "/errors";
    std::ofstream(directory.path + "/Tarquelin.ini", std::ios::binary) << session.settings;
    ChildProcess process;
    if (const int error = process.Start(trial.engine, directory.path, errors); error != 0)
        return {trial.engine + ": " + std::strerror(error), "", 0, 0};
    Talk talk(process);
    int latest = 0;
    const bool answered = talk.Ask("isready\n", Answer, Time::now() + START_TIME) &&
                          SendLines(talk, session, trial.patience, latest);
    if (answered)
        talk.Ask("quit\n", NO_LINE, Time::now() + std::chrono::milliseconds(trial.patience));
    Verdict verdict = Judge(process, answered, trial, errors);
    verdict.latest = latest;
    return verdict;
}
