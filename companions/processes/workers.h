// Several processes that do numbered jobs, each with a text as its result.
//
// The engine's state is process-wide, so that one process plays one game. The texts come in the
// order of the jobs, however many processes do them.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

class Workers {
public:
    using Job = std::function<std::string(uint64_t)>;
    // Starts `processes` of them on the jobs 0 to `count` - 1.
    Workers(int processes, uint64_t count, const Job& job);
    // Ends those that still work.
    ~Workers();
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    // Whether all of them could be started.
    bool Started() const {
        return started;
    }
    // The text of the next job. Nothing, for now, when it is not there within half a second or a
    // signal arrives.
    std::optional<std::string> Next();
    // Whether one has ended before its work was done: the next text will never come.
    bool HaveFailed() const {
        return failed;
    }

private:
    struct Worker {
        pid_t process;
        int pipe;            // to read from; -1 when it has ended
        std::string arrived; // what of its results is not whole yet
    };
    bool Start(const Job& job);
    [[noreturn]] void Work(int pipeEnd, const Job& job);
    void WaitForResults();
    void Receive(Worker& worker);
    void TakeResults(std::string& arrived);

    uint64_t jobs;
    std::atomic<uint64_t>* nextJob; // in memory that all share
    std::vector<Worker> workers;
    std::map<uint64_t, std::string> results; // that came early
    uint64_t nextResult = 0;
    bool started = false;
    bool failed = false;
};
