// The program that lets engines play under the clock and looks for faults.

#include <filesystem>

#include <gtest/gtest.h>

#include "support/companion.h"
#include "support/scratch.h"

namespace {

// Runs in an empty directory.
class ClockGames : public testing::Test {
protected:
    static Outcome Run(const std::string& words) {
        std::filesystem::create_directory("data");
        return RunCompanion("tarquelin-clock", "--data data --openings " TARQUELIN_SOURCE_DIR
                                               "/data/openings --at-once 1 " +
                                                   words);
    }
    // With an engine that speaks both protocols and does that when it is to move.
    static Outcome RunWith(const std::string& action, const std::string& words) {
        WriteFileText("engine", "#!/bin/sh\nwhile read -r line; do case $line in\n"
                                "uci) echo uciok;;\nisready) echo readyok;;\n"
                                "'protover 2') echo 'feature done=1';;\n"
                                "ping*) echo \"pong ${line#ping }\";;\ngo*) " +
                                    action + ";;\nesac\ndone\n");
        std::filesystem::permissions("engine", std::filesystem::perms::owner_all);
        WriteFileText("starts", "startpos\n");
        return Run("--engine ./engine --games 1 --starts starts " + words);
    }
    ScratchDirectory directory;
};

TEST_F(ClockGames, LetsTheEngineFinishItsGamesInBothProtocols) {
    WriteFileText("starts", "startpos moves f2f3 e7e5 g2g4\n"
                            "fen 7k/R7/6K1/8/8/8/8/8 w - - 90 100\n"
                            "fen 8/8/4k3/8/8/4K3/8/8 w - - 0 1\n");
    const Outcome played =
        Run("--engine " TARQUELIN_BINARY " --starts starts --seed 0 --time 60 --games 3 --pgn pgn "
            "--ponder --set 'Interface = modern'");
    EXPECT_EQ(played.status, 0) << played.text;
    EXPECT_TRUE(played.Says("1 won by White, 1 drawn, 1 won by Black")) << played.text;
    EXPECT_TRUE(played.Says("no fault")) << played.text;
    const std::string pgn = FileText("pgn");
    EXPECT_NE(pgn.find("1. f3 e5 2. g4 Qh4# 0-1"), std::string::npos) << pgn;
    EXPECT_NE(pgn.find("[FEN \"7k/R7/6K1/8/8/8/8/8 w - - 90 100\"]\n\n1. Ra8# 1-0"),
              std::string::npos)
        << pgn;
}

TEST_F(ClockGames, NamesWhatGoesWrong) {
    const struct {
        const char* action;
        const char* words;
        const char* fault;
    } cases[] = {
        {"echo bestmove e2e5", "--protocol uci", "illegal move: White: e2e5"},
        {"sleep 0.3; echo bestmove e2e4", "--protocol uci --time 0.2", "lost on time: White, by "},
        {"exit 1", "--protocol xboard", "has ended: White"},
        {"echo '1/2-1/2 {Draw by repetition}'", "--protocol xboard",
         "false claim: White: 1/2-1/2 {Draw by repetition}"},
        {"echo 'Illegal move: e2e4'", "--protocol xboard", "complains: White: Illegal move: e2e4"},
    };
    for (const auto& [action, words, fault] : cases) {
        const Outcome played = RunWith(action, words);
        EXPECT_EQ(played.status, 1);
        EXPECT_TRUE(played.Says("game 1: " + std::string(fault))) << played.text;
        EXPECT_TRUE(FileText("clock-1.log").starts_with("White")) << FileText("clock-1.log");
    }
}

TEST_F(ClockGames, RefusesWhatMakesNoSense) {
    for (const char* const time : {"", "0", "1+", "/1", "0/5", "1+0.1x", "move/0", "-1"})
        EXPECT_EQ(Run("--time '" + std::string(time) + "'").status, 2) << time;
    WriteFileText("starts", "startpos moves e2e4\nstartpos moves e2e5\n");
    EXPECT_TRUE(Run("--starts starts").Says("starts, line 2: no position to play from"));
}

} // namespace
