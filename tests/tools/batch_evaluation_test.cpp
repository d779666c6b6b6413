// Files of positions and games, evaluated as a whole.

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "board/position.h"
#include "eval/evaluate.h"
#include "eval/parameters/personality.h"
#include "support/engine_process.h"
#include "support/scratch.h"
#include "tools/epd_evaluation.h"
#include "tools/pgn_evaluation.h"

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

std::string PrintedBy(void (*evaluate)(const char*), const char* path) {
    return Printed([&] { evaluate(path); });
}

int32_t ScoreOf(const std::string& fen) {
    LoadFen(fen.c_str());
    RootSide = SideToMove;
    return Evaluate();
}

TEST(EpdEvaluate, PrintsAScoreForEachLineAndCopiesEveryTenth) {
    const ScratchDirectory scratch;
    std::string text;
    std::string scores;
    std::vector<std::string> lines;
    for (int i = 1; i <= 25; i++) {
        std::string line = "4k3/pppp4/8/8/8/8/PPPP4/" + std::string(i % 2 ? "R3K3" : "Q3K3");
        line += i % 3 ? " w - - bm Qa7; id \"" + std::to_string(i) + "\";" : " b - -";
        if (i == 10)
            line += std::string(1 << 20, 'x'); // the rest of it is passed over
        lines.push_back(line.substr(0, 255) + (i == 10 ? "" : "\r") + "\n");
        text += line + "\r\n";
        scores += std::to_string(ScoreOf(line)) + "\n";
    }
    WriteFileText("Suite.epd", text);
    EXPECT_EQ(PrintedBy(EpdEvaluate, ".\\suite.EPD"), scores);
    EXPECT_EQ(FileText("out.epd"), lines[9] + lines[19]);
    // No such file: no scores, and a fresh sample.
    EXPECT_EQ(PrintedBy(EpdEvaluate, "none.epd"), "");
    EXPECT_EQ(FileText("out.epd"), "");
}

// Where the sample cannot be written, scores are told all the same.
TEST(EpdEvaluate, TakesBrokenLinesAsTheyAre) {
    const ScratchDirectory scratch;
    std::filesystem::create_directory("out.epd");
    constexpr char text[] = "\n\nrrrrrrrrrrrrr/KKKK w KQkq e5\nk7/8 b\n\0\xff w - -\n"
                            "QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/k6K w";
    WriteFileText("a.epd", std::string(text, sizeof text - 1));
    EXPECT_EQ(Split(PrintedBy(EpdEvaluate, "a.epd"), '\n').size(), 6U);
}

// Ply 10 is the first that counts: the capture before it was Black's fifth move.
constexpr const char* Moves =
    "1. e4 d5 2. exd5 Qxd5 3. Nc3 Qa5 4. d4 Nf6 5. Nf3 Qxc3+ 6. Bd2 Qxd4 7. Nxd4 e5 8. a3 exd4 "
    "9. Bb5+ c6 10. Ba4 {ten} b5 11. Bxb5 cxb5 12. O-O";
// Ten plies without a change.
constexpr const char* Waiting = "Kf1 Ke7 Ke1 Ke8 Kf1 Ke7 Ke1 Ke8 Kf1 Ke7 ";

struct Line {
    int pliesLeft;
    int result;
    const char* men;
    const char* fen;
};

// The line as it must be: the terms are those of the position by itself.
std::string Text(const Line& line) {
    const int32_t score = ScoreOf(line.fen);
    const Colour s = SideToMove;
    const Colour o = ChangeSide(s);
    const int32_t material = s == BLACK ? Figures.MaterialScore : -Figures.MaterialScore;
    std::ostringstream text;
    text << line.pliesLeft << ';' << score << ';' << material << ';' << score - material << ";6300;"
         << line.result << ';' << line.men << ';' << line.fen << ';' << Figures.current_phase;
    for (const Colour side : {s, o})
        text << ';' << Figures.KingAttackScore[side] << ';' << Figures.Danger[side] << ';'
             << Figures.KingAttackers[side] << ';' << Figures.shelter_penalty[side];
    return text.str();
}

TEST(PgnEvaluate, WritesTheSettledPositionsAfterCapturesAndPromotions) {
    const ScratchDirectory scratch;
    const std::string waiting = Waiting;
    WriteFileText(
        "a.pgn",
        "[Result \"0-1\"]\n[PlyCount \"23\"]\n\n" + std::string(Moves) +
            " *\n\n"
            "[Result \"1/2-1/2\"]\n\n1. e4 e5 2. Nf3 Nf6 3. Nxe5 Nxe4 4. Nxf7 Kxf7 5. Qh5+ Ke7 "
            "6. Qe5+ Kf7 7. Qxe4 d5 8. Qxd5+ Qxd5 Zz4 1/2-1/2\n\n"
            "[FEN \"4k3/P6p/7P/8/8/8/r7/R3K3 w - - 0 1\"]\n\n" +
            waiting +
            "a8=Q Rb2 *\n"
            // Its outcome is known, whatever the terms say.
            "[FEN \"4k3/8/8/8/8/8/r7/R3K3 w - - 0 1\"]\n\n" +
            waiting +
            "Rxa2 Ke6 1-0\n"
            "1. e4 Nf9 *\n");
    EXPECT_EQ(PrintedBy(PgnEvaluate, "a.pgn"),
              "Processed 1 games...\r\nCan't recognize: Zz4...\nProcessed 2 games...\r"
              "Processed 3 games...\rProcessed 4 games...\r\nCan't recognize: Nf9...\n"
              "Processed 5 games...\r");
    constexpr Line expected[] = {
        {13, 2, "7;1;1;1;2;1;7;1;1;2;2;1",
         "rnb1kb1r/ppp1pppp/5n2/8/3P4/2q2N2/PPP2PPP/R1BQKB1R w KQkq - 0 6"},
        {10, 1, "7;1;1;2;2;0;6;1;1;1;2;1",
         "rnb1kb1r/ppp1pppp/5n2/8/3N4/8/PPPB1PPP/R2QKB1R b KQkq - 0 7"},
        {7, 2, "6;1;1;0;2;1;7;1;1;2;2;0",
         "rnb1kb1r/ppp2ppp/5n2/8/3p4/P7/1PPB1PPP/R2QKB1R w KQkq - 0 9"},
        {1, 2, "6;0;1;0;2;1;6;1;1;2;2;0",
         "rnb1kb1r/p4ppp/5n2/1p6/3p4/P7/1PPB1PPP/R2QK2R w KQkq - 0 12"},
        {-13, 0, "6;1;1;1;2;1;7;1;1;1;2;1",
         "rnbq1b1r/pppp1kpp/8/8/4Q3/8/PPPP1PPP/RNB1KB1R b KQ - 0 7"},
        {-11, 1, "1;0;0;0;1;0;1;0;0;0;1;1", "Q7/4k2p/7P/8/8/8/r7/R4K2 b - - 0 6"},
    };
    const std::vector<std::string> lines = Split(FileText("c:\\work\\my_eval.csv"), '\n');
    ASSERT_EQ(lines.size(), std::size(expected)) << FileText("c:\\work\\my_eval.csv");
    for (size_t i = 0; i < lines.size(); i++)
        EXPECT_EQ(lines[i], Text(expected[i]));
}

// As a person meets the commands, with the fixed names on a drive.
TEST(BatchCommands, EvaluateFilesFromTheConsole) {
    const ScratchDirectory scratch;
    std::filesystem::create_directory("Work");
    WriteFileText("Work/Source.pgn", Moves);
    setenv("TARQUELIN_DRIVE_C", std::filesystem::current_path().c_str(), 1);
    EngineProcess engine;
    unsetenv("TARQUELIN_DRIVE_C");
    WriteFileText(engine.Directory() + "/my suite.epd", "8/8/8/4k3/8/8/8/4K3 w - -\n");
    EXPECT_EQ(engine.Ask("epdevl"), "");
    EXPECT_EQ(engine.Ask("epdevl My Suite.epd "), "0\n") << engine.Transcript();
    // The board shows where the game has ended, and ends the line.
    EXPECT_TRUE(engine.Ask("pgneval\nbrd").starts_with("Processed 1 games...\r*R*N*B .*K*B .*R\n"));
    EXPECT_EQ(Split(FileText("Work/my_eval.csv"), '\n').size(), 4U);
    EngineProcess without;
    EXPECT_EQ(without.Ask("pgneval"), "Error opening file c:\\work\\source.pgn...\n");
}

} // namespace
