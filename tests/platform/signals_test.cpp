// The signals of chess interfaces, each sent to a process of its own. What another test has set is
// inherited, so each case begins with the system's defaults.

#include <csignal>
#include <cstdlib>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/signals.h"

namespace {

void StartWithDefaults() {
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
    InitSignals();
}

TEST(SignalsDeathTest, TerminationEndsTheProcessCleanly) {
    EXPECT_EXIT(
        {
            StartWithDefaults();
            std::raise(SIGTERM);
        },
        testing::ExitedWithCode(0), "");
}

TEST(SignalsDeathTest, ABrokenOutputPipeAndAFileThatMayNotGrowAreNoReasonToDie) {
    EXPECT_EXIT(
        {
            StartWithDefaults();
            int ends[2];
            const bool broken = pipe(ends) == 0 && close(ends[0]) == 0;
            const bool failed = write(ends[1], "x", 1) == -1;
            std::raise(SIGXFSZ);
            std::_Exit(broken && failed ? 7 : 8);
        },
        testing::ExitedWithCode(7), "");
}

TEST(SignalsDeathTest, InterruptsEndTheProcessUntilTheyAreIgnored) {
    EXPECT_EXIT(
        {
            StartWithDefaults();
            std::raise(SIGINT);
            std::_Exit(8);
        },
        testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(
        {
            StartWithDefaults();
            IgnoreInterrupts();
            std::raise(SIGINT);
            std::_Exit(7);
        },
        testing::ExitedWithCode(7), "");
}

} // namespace
