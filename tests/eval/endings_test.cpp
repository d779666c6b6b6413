#include "eval/endings/endings.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "support/board_test.h"

namespace {

using Endings = BoardTest;

// For White, whoever is to move; none when the ending is not known.
std::optional<int32_t> WhiteScore() {
    const std::optional<int32_t> score = EvaluateEnding();
    return score && SideToMove == BLACK ? -*score : score;
}

int32_t WhiteScoreOf(const std::string& fen) {
    LoadFen(fen.c_str());
    const std::optional<int32_t> score = WhiteScore();
    EXPECT_TRUE(score.has_value()) << fen;
    return score.value_or(0);
}

enum Verdict { WIN, NEARLY_DRAWN, DRAWN, OPEN };

Verdict VerdictFor(std::optional<int32_t> score) {
    if (!score)
        return OPEN;
    if (*score == 0)
        return DRAWN;
    return *score > 0 && *score < 110 ? NEARLY_DRAWN : WIN;
}

} // namespace

TEST_F(Endings, AreJudgedAsTheBooksDo) {
    struct Case {
        const char* name;
        const char* fen; // White has more
        Verdict verdict;
    };
    for (const Case& c : {
             // Against the bare king.
             Case{"queen", "8/8/3k4/8/8/8/8/3QK3 w - -", WIN},
             Case{"queen and stalemate", "k7/2Q5/8/8/8/8/8/4K3 b - -", DRAWN},
             Case{"bishop and knight", "8/8/3k4/8/8/8/8/2B1K1N1 w - -", WIN},
             Case{"two knights", "8/8/3k4/8/8/8/8/1N2K1N1 w - -", DRAWN},
             Case{"pawn, won", "4k3/8/4K3/4P3/8/8/8/8 b - -", WIN},
             Case{"pawn, drawn", "8/4k3/8/4K3/4P3/8/8/8 w - -", DRAWN},
             Case{"rook's pawn", "1k6/8/1K6/P7/8/8/8/8 w - -", DRAWN},
             Case{"right bishop", "k7/8/1K6/P7/8/3B4/8/8 w - -", OPEN},
             Case{"knight and rook's pawn", "k7/8/1K6/P7/8/2N5/8/8 w - -", OPEN},
             Case{"on the seventh", "k7/P7/8/3N4/8/8/8/4K3 w - -", DRAWN},
             Case{"on the seventh, beside the corner", "8/Pk6/8/3N4/8/2K5/8/8 w - -", DRAWN},
             Case{"the corner taken", "8/Pk6/1N6/2K5/8/8/8/8 w - -", OPEN},
             Case{"the corner taken for nothing", "8/Pk6/1N6/2K5/8/8/8/8 b - -", DRAWN},
             Case{"mate in one", "k7/P7/1K6/3N4/8/8/8/8 w - -", OPEN},
             // Without pawns.
             Case{"queen and two knights", "8/8/3k4/2nn4/8/8/8/4KQ2 b - -", NEARLY_DRAWN},
             Case{"rook and bishop", "8/8/3k4/3b4/8/8/8/4KR2 w - -", NEARLY_DRAWN},
             Case{"two knights against one", "8/8/3k4/3n4/8/8/8/4KNN1 w - -", DRAWN},
             Case{"bishop and knight against bishop", "8/8/3k4/3b4/8/8/8/4KBN1 w - -",
                  NEARLY_DRAWN},
             Case{"two bishops against knight", "8/8/3k4/3n4/8/8/8/2B1KB2 w - -", OPEN},
             // Rook against pawn.
             Case{"king before the pawn", "8/8/8/5k2/5p2/8/5K2/7R b - -", WIN},
             Case{"king cut off from its pawn", "7k/8/8/R7/8/5p2/8/4K3 b - -", WIN},
             Case{"pawn about to promote", "6K1/8/8/8/8/8/3pk3/R7 b - -", NEARLY_DRAWN},
             // Queen against pawn.
             Case{"rook's pawn and their king far", "8/8/5k2/8/8/8/p7/4K2Q w - -", WIN},
             Case{"rook's pawn and their king coming", "8/8/8/8/8/2k5/p7/4K2Q w - -", OPEN},
             Case{"rook's pawn", "6K1/8/8/8/8/8/pk6/7Q w - -", NEARLY_DRAWN},
             Case{"and our king near", "8/8/8/8/3K4/8/pk6/7Q w - -", WIN},
             Case{"but not near enough", "8/8/8/8/4K3/8/pk6/7Q w - -", NEARLY_DRAWN},
             Case{"nor when Black is to move", "8/8/8/8/3K4/8/pk6/7Q b - -", NEARLY_DRAWN},
             Case{"bishop's pawn", "6K1/8/8/8/8/8/2pk4/Q7 w - -", NEARLY_DRAWN},
             Case{"rook's pawn two steps away", "6K1/8/8/8/8/p7/1k6/7Q w - -", WIN},
             Case{"about to promote", "6K1/8/8/8/8/8/3p1k2/Q7 b - -", OPEN},
             // Bishops and a pawn.
             Case{"king before the pawn, opposite", "4k3/4b3/8/8/4P3/3BK3/8/8 w - -", NEARLY_DRAWN},
             Case{"king before the pawn, safe", "8/4kb2/8/8/4P3/4K3/4B3/8 w - -", NEARLY_DRAWN},
             Case{"king before the pawn, unsafe", "4k3/8/8/8/4P1b1/4K3/4B3/8 w - -", OPEN},
             Case{"bishop watches the path", "8/8/6k1/4b3/8/4KP2/4B3/8 w - -", NEARLY_DRAWN},
             Case{"king far away", "8/5b2/8/3P4/3K4/3B4/8/7k w - -", OPEN},
         }) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        const std::optional<int32_t> score = WhiteScore();
        EXPECT_EQ(c.verdict, VerdictFor(score)) << score.value_or(-1);
    }
}

TEST_F(Endings, AreWorthMoreWithProgress) {
    struct Case {
        const char* name;
        const char* better;
        const char* worse;
    };
    for (const Case& c : {
             Case{"king driven to the edge", "3k4/8/3K4/8/8/8/8/7R", "8/8/3k4/8/3K4/8/8/7R"},
             Case{"corner of the bishop", "7k/8/5K2/8/8/8/1B6/6N1", "k7/8/2K5/8/8/8/1B6/6N1"},
             Case{"corner of the other bishop", "k7/8/2K5/8/8/8/B7/6N1", "7k/8/5K2/8/8/8/B7/6N1"},
             Case{"rook won by the queen", "3k4/8/3K4/8/8/8/8/Q7", "2rk4/8/3K4/8/8/8/8/Q7"},
             Case{"knight astray from the rook", "4k3/8/4K3/8/8/8/8/n6R", "3nk3/8/4K3/8/8/8/8/7R"},
             Case{"king nearer to pawn and rook", "8/8/8/8/1k6/3K4/1p6/7R",
                  "8/8/8/3K4/1k6/8/1p6/7R"},
         }) {
        SCOPED_TRACE(c.name);
        for (const char* toMove : {" w - -", " b - -"})
            EXPECT_GT(WhiteScoreOf(c.better + std::string(toMove)),
                      WhiteScoreOf(c.worse + std::string(toMove)));
    }
}

TEST_F(Endings, AreNoMatesHoweverManyMenThereAre) {
    EXPECT_LT(WhiteScoreOf("QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/8/k7/7K w - -"), 30000);
    EXPECT_GT(WhiteScoreOf("8/8/8/3QQQ2/8/8/k7/7K w - -"), 2700);
}

TEST_F(Endings, CapTheScoreOfWhoCannotWin) {
    struct Case {
        const char* men;
        int32_t score, capped; // from Black's view
    };
    for (const Case& c : {
             Case{"4kn2/8/8/8/8/8/P7/4K3", 150, 0},
             Case{"4knn1/8/8/8/8/8/P7/4K3", 300, 0},
             Case{"4kr2/8/8/8/8/8/P7/4K3", 300, 300},
             Case{"4kn2/p7/8/8/8/8/P7/4K3", 300, 300},
             Case{"4k3/p7/8/8/8/8/8/4KN2", -200, 0},
         }) {
        SCOPED_TRACE(testing::Message() << c.men << " " << c.score);
        LoadFen((std::string(c.men) + " w - -").c_str());
        EXPECT_EQ(c.capped, CapUnwinnable(c.score));
    }
}
