#include "busy.h"

#include <csignal>
#include <cstdio>

#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned BETWEEN_LOOKS = 1U << 20;

} // namespace

[[noreturn]] static void KeepBusy(pid_t parent) {
    volatile unsigned work = 0;
    while (getppid() == parent) {
        for (unsigned i = 0; i < BETWEEN_LOOKS; i++)
            work = work + i;
    }
    _exit(0);
}

BusyProcesses::BusyProcesses(int count) {
    const pid_t parent = getpid();
    for (int i = 0; i < count; i++) {
        const pid_t process = fork();
        if (process == 0)
            KeepBusy(parent);
        if (process < 0)
            std::perror("Cannot start a process");
        else
            processes.push_back(process);
    }
}

BusyProcesses::~BusyProcesses() {
    for (const pid_t process : processes) {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
}
