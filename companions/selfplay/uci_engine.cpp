#include "uci_engine.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>

#include <poll.h>
#include <unistd.h>

#include "companions/processes/stop.h"

namespace {

constexpr std::chrono::seconds LONGEST_SILENCE{60};
constexpr int WAIT = 500; // milliseconds
constexpr size_t PIECE = 1 << 16;

} // namespace

// Always false.
bool UciEngine::Fail(const char* what) const {
    std::fprintf(stderr, "%s: %s\n", name.c_str(), what);
    return false;
}

bool UciEngine::Start(const std::string& path) {
    name = path;
    if (const int error = process.Start(path); error != 0)
        return Fail(std::strerror(error));
    return Send("uci\n") && WaitFor("uciok") &&
           Send("setoption name Threads value 1\nsetoption name Hash value 16\nisready\n") &&
           WaitFor("readyok");
}

bool UciEngine::Send(std::string_view text) {
    while (!text.empty()) {
        const ssize_t sent = write(process.Input(), text.data(), text.size());
        if (sent < 0 && errno != EINTR)
            return Fail("the engine has ended");
        text.remove_prefix(size_t(std::max<ssize_t>(sent, 0)));
    }
    lastHeard = Clock::now();
    return true;
}

bool UciEngine::WaitFor(std::string_view answer) {
    awaited = answer;
    finished = false;
    while (!finished) {
        pollfd waiting = {Output(), POLLIN, 0};
        poll(&waiting, 1, WAIT);
        if (StopSignal() != 0 || !Receive())
            return false;
    }
    return true;
}

bool UciEngine::Search(std::string_view fen, int nodes) {
    awaited = "bestmove";
    finished = false;
    score.reset();
    best.clear();
    return Send("position fen " + std::string(fen) + "\ngo nodes " + std::to_string(nodes) + "\n");
}

// The word after the first one that is `key`; empty where there is none.
static std::string_view WordAfter(std::string_view line, std::string_view key) {
    const size_t place = line.find(key);
    if (place == std::string_view::npos)
        return {};
    line.remove_prefix(place + key.size());
    return line.substr(0, line.find(' '));
}

void UciEngine::ReadLine(std::string_view line) {
    finished = finished || line.starts_with(awaited);
    if (line.starts_with("bestmove "))
        best = WordAfter(line, "bestmove ");
    if (!line.starts_with("info ") || line.find(" score ") == std::string_view::npos)
        return;
    // A bound is no score yet; the line that settles it follows.
    if (line.find("bound") != std::string_view::npos)
        return;
    const std::string_view number = WordAfter(line, " score cp ");
    int centipawns = 0;
    const auto [end, error] =
        std::from_chars(number.data(), number.data() + number.size(), centipawns);
    score = error == std::errc() ? std::optional(centipawns) : std::nullopt;
}

bool UciEngine::Receive() {
    pollfd waiting = {Output(), POLLIN, 0};
    if (poll(&waiting, 1, 0) <= 0)
        return Clock::now() - lastHeard < LONGEST_SILENCE || Fail("the engine does not answer");
    char piece[PIECE];
    const ssize_t got = read(Output(), piece, sizeof piece);
    if (got < 0 && errno == EINTR)
        return true;
    if (got <= 0)
        return Fail("the engine has ended");
    lastHeard = Clock::now();
    arrived.append(piece, size_t(got));
    size_t begin = 0;
    for (size_t end; (end = arrived.find('\n', begin)) != std::string::npos; begin = end + 1)
        ReadLine(std::string_view(arrived).substr(begin, end - begin));
    arrived.erase(0, begin);
    return true;
}
