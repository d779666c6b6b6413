#include "platform/signals.h"

#include <csignal>
#include <cstdlib>

// Every reply is flushed as it is printed, so that nothing is lost by leaving at once.
extern "C" {
static void LeaveCleanly(int) {
    std::_Exit(0);
}
}

void InitSignals() {
    std::signal(SIGTERM, LeaveCleanly);
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // the write fails instead, as on a full disk
#endif
}

void IgnoreInterrupts() {
    std::signal(SIGINT, SIG_IGN);
}
