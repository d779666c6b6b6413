#include "support/engine_process.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <pty.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

namespace {

// Roomy: it only has to end a test that hangs.
constexpr int DEADLINE_MILLISECONDS = 60000;
// A command in the environment that starts another build of the engine, which may end its lines in
// the manner of its own system.
constexpr char OTHER_ENGINE[] = "TARQUELIN_TEST_ENGINE";

} // namespace

EngineProcess::EngineProcess(const std::string& settings) {
    MakeDirectory(settings);
    Start();
}

EngineProcess::EngineProcess(const std::string& settings, AtTerminal) {
    MakeDirectory(settings);
    StartAtTerminal();
}

void EngineProcess::MakeDirectory(const std::string& settings) {
    char name[] = "/tmp/tarquelin-test-XXXXXX";
    directory = mkdtemp(name);
    if (!settings.empty())
        std::ofstream(directory + "/Tarquelin.ini", std::ios::binary) << settings;
}

EngineProcess::~EngineProcess() {
    CloseInput();
    if (fromEngine >= 0)
        close(fromEngine);
    if (process > 0) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    std::error_code error;
    std::filesystem::remove_all(directory, error);
}

void EngineProcess::Start() {
    std::signal(SIGPIPE, SIG_IGN);
    int input[2];
    int output[2];
    ASSERT_EQ(pipe2(input, O_CLOEXEC), 0);
    ASSERT_EQ(pipe2(output, O_CLOEXEC), 0);
    process = fork();
    if (process == 0)
        BecomeEngine(input[0], output[1]);
    close(input[0]);
    close(output[1]);
    toEngine = input[1];
    fromEngine = output[0];
}

void EngineProcess::StartAtTerminal() {
    int person = -1;
    int terminal = -1;
    // As it comes: no echo, and line ends as they are printed.
    termios raw = {};
    cfmakeraw(&raw);
    cfsetspeed(&raw, B38400);
    ASSERT_EQ(openpty(&person, &terminal, nullptr, &raw, nullptr), 0);
    process = fork();
    if (process == 0) {
        setenv("TERM", "dumb", 1);
        close(person);
        BecomeEngine(terminal, terminal);
    }
    close(terminal);
    toEngine = person;
    fromEngine = dup(person);
}

void EngineProcess::BecomeEngine(int input, int output) {
    // A test run that is killed must not leave an engine thinking.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    const char* const other = std::getenv(OTHER_ENGINE);
    const std::string command = std::string("exec ") + (other != nullptr ? other : "");
    if (chdir(directory.c_str()) != 0)
        _exit(127);
    if (other != nullptr)
        execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
    else
        execl(TARQUELIN_BINARY, TARQUELIN_BINARY, static_cast<char*>(nullptr));
    _exit(127);
}

void EngineProcess::SendBytes(const std::string& bytes) {
    transcript += "> " + bytes.substr(0, 200);
    for (size_t sent = 0; sent < bytes.size();) {
        const ssize_t count = write(toEngine, bytes.data() + sent, bytes.size() - sent);
        if (count < 0 && errno != EINTR)
            return;
        sent += count > 0 ? size_t(count) : 0;
    }
}

void EngineProcess::Send(const std::string& line) {
    SendBytes(line + "\n");
}

void EngineProcess::StopReading() {
    close(fromEngine);
    fromEngine = -1;
}

void EngineProcess::Die() {
    CloseInput();
    StopReading();
}

void EngineProcess::CloseInput() {
    if (toEngine >= 0)
        close(toEngine);
    toEngine = -1;
}

bool EngineProcess::ReadMore() {
    pollfd waiting = {fromEngine, POLLIN, 0};
    if (poll(&waiting, 1, DEADLINE_MILLISECONDS) <= 0)
        return false;
    char chunk[4096];
    const ssize_t count = read(fromEngine, chunk, sizeof chunk);
    if (count <= 0)
        return false;
    std::string text(chunk, size_t(count));
    if (std::getenv(OTHER_ENGINE) != nullptr)
        std::erase(text, '\r');
    pending += text;
    transcript += text;
    return true;
}

std::string EngineProcess::ReadThrough(const std::string& text) {
    size_t found = pending.find(text);
    while (found == std::string::npos) {
        if (!ReadMore()) {
            ADD_FAILURE() << "The engine does not print \"" << text << "\":\n" << transcript;
            return "";
        }
        found = pending.find(text);
    }
    const std::string all = pending.substr(0, found + text.size());
    pending.erase(0, all.size());
    return all;
}

std::string EngineProcess::ReadLine() {
    std::string line = ReadThrough("\n");
    if (!line.empty())
        line.pop_back();
    return line;
}

std::string EngineProcess::ReadUntil(const std::string& line) {
    std::string all;
    for (;;) {
        const std::string read = ReadThrough("\n");
        if (read.empty() || read == line + "\n")
            return all;
        all += read;
    }
}

std::string EngineProcess::ReadUntilPrefix(const std::string& prefix) {
    std::string all;
    for (;;) {
        const std::string read = ReadThrough("\n");
        all += read;
        if (read.empty() || read.starts_with(prefix))
            return all;
    }
}

std::string EngineProcess::Settle() {
    Send("isready");
    return ReadUntil("readyok");
}

std::string EngineProcess::WaitUntilIdle() {
    std::string all;
    for (int waited = 0; waited < DEADLINE_MILLISECONDS; waited += 10) {
        // A running search answers the second line only.
        Send("mvd");
        all += Settle();
        if (const size_t found = all.find("castling flags = "); found != std::string::npos)
            return all.substr(0, found);
        if (!Running())
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ADD_FAILURE() << "The engine goes on searching:\n" << transcript;
    return all;
}

std::string EngineProcess::Ask(const std::string& lines) {
    Settle();
    Send(lines);
    return Settle();
}

void EngineProcess::Interrupt() {
    kill(process, SIGINT);
}

void EngineProcess::Terminate() {
    kill(process, SIGTERM);
}

int EngineProcess::WaitForExit() {
    for (int waited = 0; waited < DEADLINE_MILLISECONDS; waited += 10) {
        int status = 0;
        if (waitpid(process, &status, WNOHANG) == process) {
            process = -1;
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return -1;
}

bool EngineProcess::Running() const {
    return process > 0 && kill(process, 0) == 0 && waitpid(process, nullptr, WNOHANG) == 0;
}

long EngineProcess::ProcessorTime() const {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    std::istringstream fields(text.substr(std::min(text.rfind(')') + 2, text.size())));
    std::string skipped;
    for (int i = 0; i < 11; i++)
        fields >> skipped;
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return (user + system) * 1000 / sysconf(_SC_CLK_TCK);
}

bool EngineProcess::FallsAsleep() const {
    long used = ProcessorTime();
    for (int waited = 0; waited < DEADLINE_MILLISECONDS; waited += 300) {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        const long before = used;
        used = ProcessorTime();
        if (used == before)
            return true;
    }
    return false;
}
