#include "companions/processes/child_process.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Pipe {
    int ends[2] = {-1, -1};

    ~Pipe() {
        for (const int end : ends) {
            if (end >= 0)
                close(end);
        }
    }
    bool Open() {
        return pipe2(ends, O_CLOEXEC) == 0;
    }
    int Take(int end) {
        return std::exchange(ends[end], -1);
    }
};

// What goes to the program and what comes from it, and how it is started.
struct Spawning {
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;

    Spawning(int input, int output) {
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
        posix_spawnattr_init(&attributes);
        // The keyboard's interrupt is for us; the program is ended when we do.
        posix_spawnattr_setpgroup(&attributes, 0);
        sigset_t usual;
        sigemptyset(&usual);
        sigaddset(&usual, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes, &usual);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
    }
    ~Spawning() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;
};

} // namespace

ChildProcess::~ChildProcess() {
    if (input >= 0) {
        close(input);
        close(output);
    }
    if (process < 0)
        return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

// Our ends of the pipes stay with us: the program has none of its own.
int ChildProcess::Start(const std::string& program, const std::string& directory,
                        const std::string& errors) {
    std::signal(SIGPIPE, SIG_IGN);
    Pipe to;
    Pipe from;
    if (!to.Open() || !from.Open())
        return errno;
    Spawning spawning(to.ends[0], from.ends[1]);
    if (!errors.empty())
        posix_spawn_file_actions_addopen(&spawning.files, STDERR_FILENO, errors.c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (!directory.empty())
        posix_spawn_file_actions_addchdir_np(&spawning.files, directory.c_str());
    std::string name = program;
    char* const words[] = {name.data(), nullptr};
    if (const int error = posix_spawnp(&process, name.c_str(), &spawning.files,
                                       &spawning.attributes, words, environ);
        error != 0) {
        process = -1;
        return error;
    }
    input = to.Take(1);
    output = from.Take(0);
    return 0;
}

bool ChildProcess::HasEnded(int& status, rusage& used) {
    if (process >= 0 && wait4(process, &status, WNOHANG, &used) != process)
        return false;
    process = -1;
    return true;
}
