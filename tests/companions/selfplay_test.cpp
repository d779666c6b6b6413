// Games of the engine against itself, as a user has them played and judged.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/score.h"
#include "support/board_test.h"
#include "support/companion.h"
#include "support/scratch.h"

namespace fs = std::filesystem;

namespace {

using Columns = std::vector<std::string>;

class SelfPlay : public BoardTest {
protected:
    void SetUp() override {
        WriteFileText("lines.tsv", "eco\tname\tpgn\nA00\tOne\t1. e4 e5 2. Nf3 Nc6\n"
                                   "A01\tTwo\t1. d4 h6 2. d5\nA02\tThree\t1. c4\n");
    }
    // Plays quick games; `before` goes into the shell first.
    static Outcome Play(const std::string& words, const std::string& before = "") {
        return RunCompanion("tarquelin-selfplay", "play --nodes 100 --openings . " + words, before);
    }
    static Outcome Judge(const std::string& words) {
        return RunCompanion("tarquelin-selfplay", "judge --engine ./engine " + words);
    }
    static std::vector<Columns> Lines(const std::string& path) {
        std::vector<Columns> lines;
        std::istringstream text(FileText(path));
        for (std::string line; std::getline(text, line);) {
            std::istringstream columns(line);
            lines.emplace_back();
            for (std::string column; std::getline(columns, column, '\t');)
                lines.back().push_back(column);
        }
        return lines;
    }
    // A program in the place of an engine, which dies in its search number `last`. Its score is the
    // length of the text of the men; it sees a mate where that begins with "r", and a capture on a8
    // where with "q".
    static void WriteEngine(int last) {
        WriteFileText("engine",
                      "#!/bin/sh\nn=0\nwhile read -r word fen men rest; do case $word in\n"
                      "uci) echo id name x; echo uciok;;\nisready) echo readyok;;\n"
                      "position) board=$men;;\ngo) n=$((n + 1)); [ $n -lt " +
                          std::to_string(last) +
                          " ] || exit\necho info depth 1 score cp 7 lowerbound nodes 3\n"
                          "case $board in r*) echo info score mate 2 nodes 9;;\n"
                          "*) echo info depth 2 score cp ${#board} nodes 9;; esac\n"
                          "echo info depth 3 score cp 7 upperbound\n"
                          "case $board in q*) echo bestmove a1a8;; *) echo bestmove e2e4;; esac;;\n"
                          "esac; done\n");
        fs::permissions("engine", fs::perms::owner_all);
    }

    ScratchDirectory directory;
};

} // namespace

TEST_F(SelfPlay, WritesQuietPositionsWithOneResultForEachGame) {
    const Outcome played = Play("--seeds 1-40 --output all");
    EXPECT_EQ(played.status, 0) << played.text;
    std::map<std::string, std::string> results; // by seed
    std::set<std::string> met;
    for (const Columns& line : Lines("all")) {
        ASSERT_EQ(line.size(), 4U);
        SCOPED_TRACE(line[0]);
        EXPECT_EQ(results.try_emplace(line[3], line[2]).first->second, line[2]);
        EXPECT_LE(std::abs(std::stoi(line[1])), MATE_BOUND);
        LoadFen(line[0].c_str());
        EXPECT_FALSE(InCheck(SideToMove));
        std::istringstream fields(line[0]);
        std::string men, side, rights, enPassant;
        int quietPlies = -1;
        int move = 0;
        fields >> men >> side >> rights >> enPassant >> quietPlies >> move;
        EXPECT_TRUE(met.insert(line[3] + men + side + rights + enPassant).second);
        EXPECT_TRUE(0 <= quietPlies && quietPlies < 100 && move >= 2);
        EXPECT_TRUE(enPassant == "-" || enPassant[1] == (side == "w" ? '6' : '3'));
    }
    EXPECT_EQ(results.size(), 40U);
    for (const auto& [seed, result] : results)
        EXPECT_TRUE(result == "1-0" || result == "0-1" || result == "1/2-1/2") << seed;
    // One position in three of a game is a third of the game.
    EXPECT_EQ(Play("--seeds 5-5 --every 3 --output third").status, 0);
    const auto ofFive =
        std::ranges::count(Lines("all"), "5", [](const Columns& c) { return c[3]; });
    EXPECT_NEAR(double(Lines("third").size()), double(ofFive) / 3, 1);
    for (const Columns& line : Lines("third"))
        EXPECT_NE(FileText("all").find(line[0] + "\t" + line[1]), std::string::npos) << line[0];
}

TEST_F(SelfPlay, PlaysTheSameGamesInAnyNumberOfProcessesAndAfterAnyCut) {
    EXPECT_EQ(Play("--seeds 1-8 --threads 1 --output whole").status, 0);
    const std::string whole = FileText("whole");
    const size_t fifth = whole.find("\t5\n") + 3;
    const size_t eighth = whole.find("\t8\n") + 3;
    for (const size_t left : {size_t{0}, fifth, fifth + 20, eighth, whole.size() - 1}) {
        SCOPED_TRACE(left);
        WriteFileText("cut", whole.substr(0, left));
        EXPECT_EQ(Play("--seeds 1-8 --threads 3 --output cut").status, 0);
        EXPECT_TRUE(FileText("cut") == whole);
    }
    // Ranges add up.
    EXPECT_EQ(Play("--seeds 1-3 --output added").status, 0);
    EXPECT_EQ(Play("--seeds 4-8 --output added").status, 0);
    EXPECT_TRUE(FileText("added") == whole);
}

TEST_F(SelfPlay, GoesOnAfterItWasStoppedOrKilled) {
    // Not before it has written something, for which it has a minute.
    const auto PlayUntil = [](const std::string& signal) {
        return Play("--seeds 1-1000000 --output stopped",
                    "sh -c 'shift 2; touch stopped; size=$(wc -c <stopped); i=0; \"$@\" &\n"
                    "while [ $((i = i + 1)) -lt 3000 ] && [ $(wc -c <stopped) -le $size ]\n"
                    "do sleep 0.02; done; kill -" +
                        signal + " $!; wait $!' sh");
    };
    for (const auto& [signal, status] : {std::pair("KILL", 137), {"INT", 130}, {"TERM", 143}})
        EXPECT_EQ(PlayUntil(signal).status, status) << FileText("out");
    const std::vector<Columns> lines = Lines("stopped");
    const std::string range = "--seeds 1-" + (lines.empty() ? "1" : lines.back().back());
    EXPECT_EQ(Play(range + " --output stopped").status, 0);
    EXPECT_EQ(Play(range + " --output whole").status, 0);
    EXPECT_TRUE(FileText("stopped") == FileText("whole"));
}

TEST_F(SelfPlay, HasItsPositionsJudgedByAnotherEngine) {
    std::string positions;
    std::string judged;
    for (int i = 0; i < 60; i++) {
        const std::string men = (i % 4 == 0   ? "r"
                                 : i % 4 == 1 ? "q"
                                              : "") +
                                std::string(size_t(i % 9 + 8), 'k');
        const std::string fen = men + (i % 2 == 0 ? " b" : " w") + " - - 0 " + std::to_string(i);
        const std::string rest = "\t0-1\t" + std::to_string(i / 7) + "\n";
        positions += fen + "\t5" + rest;
        if (i % 4 > 1)
            judged += fen + (i % 2 == 0 ? "\t-" : "\t") + std::to_string(men.size()) + rest;
    }
    // What cannot be understood is named; half a line at the end, whose seed may go on, is nothing.
    WriteFileText("positions", positions + "nonsense\nkkk w - - 0 60\t5\t0-1\t1");
    WriteEngine(10);
    const Outcome dead = Judge("--threads 1 --output judged positions");
    EXPECT_TRUE(dead.status == 1 && dead.Says("./engine: the engine has ended")) << dead.text;
    EXPECT_EQ(Lines("judged").size(), 4U) << "three mates and two captures of nine";
    WriteFileText("judged", FileText("judged") + "kkk w - - 0");
    WriteEngine(1000000);
    const Outcome went = Judge("--threads 3 --output judged positions");
    EXPECT_TRUE(went.status == 0 && went.Says("positions:61: ")) << went.text;
    EXPECT_EQ(FileText("judged"), judged);
    WriteFileText("judged", "kkk w - - 0 99\t5\t1-0\t3\n" + judged);
    EXPECT_TRUE(Judge("--output judged positions").Says("other positions")) << FileText("out");
    WriteFileText("engine", "#!/bin/sh\n");
    EXPECT_EQ(Judge("--output new positions").status, 1);
}
