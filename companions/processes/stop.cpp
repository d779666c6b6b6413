#include "companions/processes/stop.h"

#include <csignal>
#include <initializer_list>

static volatile std::sig_atomic_t Noted = 0;

static void Note(int signal) {
    Noted = signal;
}

void NoteStopSignals() {
    struct sigaction action = {};
    action.sa_handler = Note; // and what waits is interrupted
    for (const int signal : {SIGINT, SIGTERM})
        sigaction(signal, &action, nullptr);
}

int StopSignal() {
    return Noted;
}
