// The streams of a process, each case in a process of its own.

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/standard_streams.h"

namespace {

TEST(StandardStreamsDeathTest, NoFileTakesTheNumberOfAMissingOne) {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        EXPECT_EXIT(
            {
                close(stream);
                OpenStandardStreams();
                char c = 0;
                const bool null = read(stream, &c, 1) <= 0 && fcntl(stream, F_GETFD) != -1;
                const bool free = open("/dev/zero", O_RDONLY) > STDERR_FILENO;
                std::_Exit(null && free ? 7 : 8);
            },
            testing::ExitedWithCode(7), "");
    }
}

TEST(StandardStreamsDeathTest, OutputIsAbandonedOnceItsReaderHasGone) {
    EXPECT_EXIT(
        {
            int ends[2];
            const bool piped = pipe(ends) == 0 && dup2(ends[1], STDOUT_FILENO) == STDOUT_FILENO;
            const bool before = OutputAbandoned();
            close(ends[0]);
            std::_Exit(piped && !before && OutputAbandoned() ? 7 : 8);
        },
        testing::ExitedWithCode(7), "");
}

} // namespace
