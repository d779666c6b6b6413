// Standard input: waiting bytes, the end.

#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/input.h"

namespace {

// A pipe in the place of standard input, for as long as the object lives.
class PipedInput {
public:
    PipedInput() {
        saved = dup(STDIN_FILENO);
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        dup2(ends[0], STDIN_FILENO);
        close(ends[0]);
        writer = ends[1];
    }
    ~PipedInput() {
        Close();
        dup2(saved, STDIN_FILENO);
        close(saved);
    }
    PipedInput(const PipedInput&) = delete;
    PipedInput& operator=(const PipedInput&) = delete;

    void Write(const std::string& bytes) {
        EXPECT_EQ(write(writer, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    }
    void Close() {
        if (writer >= 0)
            close(writer);
        writer = -1;
    }

private:
    int saved = -1;
    int writer = -1;
};

std::string Read(int size) {
    std::string buffer(size_t(size), '#');
    return buffer.substr(0, size_t(ReadStandardInput(buffer.data(), size)));
}

TEST(StandardInput, GivesWhatIsThereWithoutWaitingForMore) {
    PipedInput input;
    input.Write("go\nst");
    EXPECT_EQ(Read(100), "go\nst");
    input.Write("op\r");
    EXPECT_EQ(Read(100), "op\r");
    input.Write("\nquit\n");
    EXPECT_EQ(Read(4), "\nqui");
    EXPECT_EQ(Read(100), "t\n");
}

TEST(StandardInput, WaitsWhenTheBytesWereGivenOrTheWriterHasGone) {
    PipedInput input;
    EXPECT_EQ(StandardInputWaiting(), 0);
    input.Write("x");
    EXPECT_NE(StandardInputWaiting(), 0);
    EXPECT_EQ(Read(100), "x");
    EXPECT_EQ(StandardInputWaiting(), 0);
    input.Close();
    EXPECT_NE(StandardInputWaiting(), 0);
    EXPECT_EQ(Read(100), "");
}

TEST(StandardInput, ThatDoesNotBlockIsWaitedForAllTheSame) {
    PipedInput input;
    ASSERT_EQ(fcntl(STDIN_FILENO, F_SETFL, O_NONBLOCK), 0);
    // Another process writes, at a time of its own: before the read or while it waits.
    const pid_t writer = fork();
    if (writer == 0) {
        usleep(20000);
        input.Write("late\n");
        _exit(0);
    }
    EXPECT_EQ(Read(100), "late\n");
    waitpid(writer, nullptr, 0);
}

} // namespace
