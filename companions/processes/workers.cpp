#include "companions/processes/workers.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int WAIT = 500; // milliseconds
constexpr size_t PIECE = 1 << 16;

// Goes before each text in the pipe.
struct ResultHead {
    uint64_t job;
    uint64_t size;
};

using Counter = std::atomic<uint64_t>;
static_assert(Counter::is_always_lock_free);

} // namespace

Workers::Workers(int processes, uint64_t count, const Job& job) : jobs(count), nextJob(nullptr) {
    void* const shared =
        mmap(nullptr, sizeof(Counter), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
        std::perror("Cannot share memory");
        return;
    }
    nextJob = new (shared) Counter(0);
    // What is in the buffers would be printed by each process.
    std::fflush(nullptr);
    started = true;
    for (int i = 0; i < processes && started; i++)
        started = Start(job);
}

Workers::~Workers() {
    for (const Worker& worker : workers) {
        if (worker.pipe < 0)
            continue;
        close(worker.pipe);
        kill(worker.process, SIGKILL);
        waitpid(worker.process, nullptr, 0);
    }
    if (nextJob != nullptr)
        munmap(nextJob, sizeof *nextJob);
}

bool Workers::Start(const Job& job) {
    int ends[2];
    if (pipe(ends) != 0) {
        std::perror("Cannot open a pipe");
        return false;
    }
    const pid_t process = fork();
    if (process == 0) {
        close(ends[0]);
        Work(ends[1], job);
    }
    close(ends[1]);
    if (process < 0) {
        std::perror("Cannot start a process");
        close(ends[0]);
        return false;
    }
    workers.push_back({process, ends[0], {}});
    return true;
}

static bool Send(int pipe, const char* bytes, size_t size) {
    while (size > 0) {
        const ssize_t sent = write(pipe, bytes, size);
        if (sent < 0)
            return false;
        bytes += sent;
        size -= size_t(sent);
    }
    return true;
}

// Does jobs until there are no more, or until nobody wants their results.
void Workers::Work(int pipeEnd, const Job& job) {
    // A keyboard interrupts all processes at once, and so do those who manage a machine; the first
    // one decides what that means.
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGTERM, SIG_IGN);
    std::signal(SIGPIPE, SIG_DFL);
    // As long as another worker can read from a pipe, it looks as if somebody would.
    for (const Worker& other : workers)
        close(other.pipe);
    for (uint64_t i; (i = nextJob->fetch_add(1)) < jobs;) {
        const std::string text = job(i);
        const ResultHead head = {i, text.size()};
        if (!Send(pipeEnd, reinterpret_cast<const char*>(&head), sizeof head) ||
            !Send(pipeEnd, text.data(), text.size()))
            _exit(1);
    }
    _exit(0);
}

void Workers::TakeResults(std::string& arrived) {
    ResultHead head;
    while (arrived.size() >= sizeof head) {
        std::memcpy(&head, arrived.data(), sizeof head);
        if (arrived.size() - sizeof head < head.size)
            return;
        results[head.job] = arrived.substr(sizeof head, head.size);
        arrived.erase(0, sizeof head + head.size);
    }
}

void Workers::Receive(Worker& worker) {
    char piece[PIECE];
    const ssize_t got = read(worker.pipe, piece, sizeof piece);
    if (got < 0 && errno == EINTR)
        return;
    if (got > 0) {
        worker.arrived.append(piece, size_t(got));
        TakeResults(worker.arrived);
        return;
    }
    close(worker.pipe);
    worker.pipe = -1;
    int status = 0;
    waitpid(worker.process, &status, 0);
    failed = failed || !WIFEXITED(status) || WEXITSTATUS(status) != 0;
}

void Workers::WaitForResults() {
    std::vector<pollfd> pipes;
    for (const Worker& worker : workers)
        pipes.push_back({worker.pipe, POLLIN, 0});
    if (poll(pipes.data(), pipes.size(), WAIT) <= 0)
        return;
    for (size_t i = 0; i < pipes.size(); i++) {
        if (pipes[i].revents != 0)
            Receive(workers[i]);
    }
}

std::optional<std::string> Workers::Next() {
    if (!results.contains(nextResult))
        WaitForResults();
    const auto found = results.find(nextResult);
    if (found == results.end())
        return std::nullopt;
    std::string text = std::move(found->second);
    results.erase(found);
    nextResult++;
    return text;
}
