// Another program, with pipes for its input and its output.
#pragma once

#include <string>
#include <utility>

#include <sys/resource.h>
#include <sys/types.h>

class ChildProcess {
public:
    ChildProcess() = default;
    // Kills the program if it still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Starts the program, in that directory unless it is empty, and with its error output in that
    // file unless it is empty. Returns 0, or the system's number of what went wrong. From now on a
    // program that has ended is noticed by a write that fails.
    int Start(const std::string& program, const std::string& directory = "",
              const std::string& errors = "");

    // Where to write to and to read from.
    int Input() const {
        return input;
    }
    int Output() const {
        return output;
    }
    // Whether the program has ended; its status, as `waitpid` gives it, and what it has used.
    bool HasEnded(int& status, rusage& used);

private:
    pid_t process = -1;
    int input = -1;
    int output = -1;
};
