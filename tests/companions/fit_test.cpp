// The fit as a user runs it, on labels that come from values it has to find.

#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "eval/derived_tables.h"
#include "eval/evaluate.h"
#include "eval/parameters/values_file.h"
#include "support/board_test.h"
#include "support/companion.h"
#include "support/engine_setup.h"
#include "support/scratch.h"

namespace {

// Cells of the imbalance are many and would need many games.
constexpr const char* Options = "--results 0 --prior 0.001 --freeze ImbalanceTable --threads 2";

class FitCompanion : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        SetUpEngineTables();
        InitDerivedTables();
    }
    void TearDown() override {
        Params = {};
        InitDerivedTables();
        BoardTest::TearDown();
    }

    // Positions of random games with what the evaluation says of them, and results that go with it.
    static std::string Samples() {
        std::mt19937 random(3);
        std::ostringstream text;
        int game = 0;
        WalkRandomGames(12, [&] {
            const int32_t score = SideToMove == WHITE ? Evaluate() : -Evaluate();
            const double chances = 1 / (1 + std::pow(10.0, -score / 400.0));
            const bool won = double(random() % 1000) < 1000 * chances;
            text << WriteFen() << '\t' << score << '\t' << (won ? "1-0" : "0-1") << '\t' << game++
                 << '\n';
        });
        return text.str();
    }

    // The errors of a run, training and held out, by round.
    static std::vector<std::pair<double, double>> Errors(const std::string& output) {
        std::vector<std::pair<double, double>> errors;
        std::istringstream lines(output);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream numbers(line);
            int round = 0;
            double training = 0;
            double heldOut = 0;
            if (numbers >> round >> training >> heldOut)
                errors.emplace_back(training, heldOut);
        }
        return errors;
    }

    ScratchDirectory directory;
};

} // namespace

TEST_F(FitCompanion, FindsTheValuesThatTheLabelsComeFrom) {
    Params.RookMobilityMiddlegame += 6;
    Params.BishopPairMiddlegame += 60;
    Params.IsolatedMiddlegame[2] = Params.IsolatedMiddlegame[5] = 40;
    Params.KnightPair = -50;
    Params.QueenDanger += 12;
    for (int32_t& value : Params.KnightMiddlegame)
        value += 45;
    InitDerivedTables();
    WriteFileText("samples.tsv", "# comment\n" + Samples());
    Params = {};
    ASSERT_TRUE(WriteParameters("start.txt"));

    const Outcome fit =
        RunCompanion("tarquelin-fit",
                     std::string(Options) + " --start start.txt --report look.html samples.tsv");
    ASSERT_EQ(fit.status, 0) << fit.text;
    const auto errors = Errors(fit.text);
    ASSERT_GE(errors.size(), 2u) << fit.text;
    EXPECT_LT(errors.back().first, errors[0].first / 10) << fit.text;
    EXPECT_LT(errors.back().second, errors[0].second / 2) << fit.text;

    LoadParameters("fitted.txt");
    EXPECT_EQ(Params.IsolatedMiddlegame[2], Params.IsolatedMiddlegame[5]);
    EXPECT_EQ(Params.EndingPieces, EvalParameters().EndingPieces);
    EXPECT_GT(Params.QueenDanger, EvalParameters().QueenDanger);
    const std::string page = FileText("look.html");
    EXPECT_NE(page.find("KnightMiddlegame"), page.npos);
    EXPECT_EQ(page.find("http"), page.npos) << "something from the network";
    EXPECT_NE(page.find("</html>"), page.npos);
}

TEST_F(FitCompanion, LeavesWhatIsFrozenAndReadsGames) {
    WriteFileText("games.pgn",
                  "[Result \"1-0\"]\n\n1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. O-O "
                  "Be7 6. Re1 b5 7. Bb3 O-O 1-0\n\n[Result \"*\"]\n\n1. d4 d5 2. c4 e6 "
                  "3. Nc3 Nf6 4. Bg5 Be7 5. e3 O-O *\n");
    const Outcome fit =
        RunCompanion("tarquelin-fit", "--freeze P Q Imbalance --prior 0.01 --held-out 0 games.pgn");
    ASSERT_EQ(fit.status, 0) << fit.text;
    EXPECT_TRUE(fit.Says("positions of 1 games")) << fit.text;
    LoadParameters("fitted.txt");
    EXPECT_EQ(Params.PawnMiddlegame, EvalParameters().PawnMiddlegame);
    EXPECT_NE(Params.KingMiddlegame, EvalParameters().KingMiddlegame);
}

TEST_F(FitCompanion, SaysWhatIsWrongWithItsInput) {
    WriteFileText("empty.tsv", "");
    WriteFileText("torn.tsv", "8/8/8/4k3/8/8/4P3/4K3 w - - 0 1\t40\t1-0\t1\nrubbish\n"
                              "8/8/8/4k3/8/8/4P3/4K3 w - - 0 1\t40\t1-0");
    EXPECT_TRUE(RunCompanion("tarquelin-fit", "empty.tsv").Says("no positions"));
    EXPECT_EQ(RunCompanion("tarquelin-fit", "empty.tsv").status, 1);
    EXPECT_EQ(RunCompanion("tarquelin-fit", "nowhere.tsv").status, 1);
    EXPECT_TRUE(
        RunCompanion("tarquelin-fit", "--start nowhere.txt torn.tsv").Says("nowhere.txt: "));
    EXPECT_EQ(RunCompanion("tarquelin-fit", "").status, 2);
    const Outcome torn = RunCompanion("tarquelin-fit", "--rounds 0 torn.tsv");
    EXPECT_TRUE(torn.status == 0 && torn.Says("torn.tsv:2: this is no sample") &&
                torn.Says("1 positions of 1 games"))
        << torn.text;
    const Outcome unwritable =
        RunCompanion("tarquelin-fit", "--rounds 0 --output nowhere/x.txt torn.tsv");
    EXPECT_TRUE(unwritable.status == 1 && unwritable.Says("Cannot write nowhere/x.txt"));
}
