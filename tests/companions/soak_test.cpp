// The program that holds random sessions with an engine.

#include <filesystem>

#include <gtest/gtest.h>

#include "support/companion.h"
#include "support/scratch.h"

namespace {

// Runs in an empty directory with an engine that ends as soon as it is sent that line.
class Soak : public testing::Test {
protected:
    static Outcome Run(const std::string& lastLine, const std::string& words) {
        WriteFileText("engine", "#!/bin/sh\nwhile read -r line; do case $line in\n" + lastLine +
                                    ") exit 3;;\nisready) echo readyok;;\nquit) exit 0;;\nesac\n"
                                    "done\n");
        std::filesystem::permissions("engine", std::filesystem::perms::owner_all);
        std::filesystem::create_directory("data");
        return RunCompanion("tarquelin-soak",
                            "--engine engine --patience 20000 --lines 600 " + words);
    }
    ScratchDirectory directory;
};

TEST_F(Soak, CutsASessionDownToTheLineThatEndsTheEngine) {
    const Outcome found = Run("undo", "--session 300");
    EXPECT_EQ(found.status, 1);
    EXPECT_TRUE(found.Says("ended with status 3\n1 lines bring it about")) << found.text;
    EXPECT_TRUE(FileText("soak-1").ends_with("\n0\tundo\n")) << FileText("soak-1");
    EXPECT_TRUE(Run("undo", "soak-1").Says("ended with status 3"));
    EXPECT_EQ(Run("never", "soak-1").status, 0);
}

TEST_F(Soak, TellsThatNothingWasFound) {
    const Outcome found = Run("never", "--session 300");
    EXPECT_EQ(found.status, 0) << found.text;
    EXPECT_TRUE(found.Says("no fault")) << found.text;
}

} // namespace
