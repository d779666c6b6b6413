#include "eval/endings/endings.h"

#include <cstdlib>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "support/flipped.h"

namespace {

class Endings : public testing::Test {
protected:
    void TearDown() override {
        SetStartPosition();
    }
};

// For White, whoever is to move; none when the ending is not known.
std::optional<int32_t> WhiteScore() {
    int32_t score = 0;
    if (!EvaluateEnding(score))
        return std::nullopt;
    return SideToMove == WHITE ? score : -score;
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
             Case{"bare kings", "4k3/8/8/8/8/8/8/4K3 w - -", DRAWN},
             Case{"queen", "8/8/3k4/8/8/8/8/3QK3 w - -", WIN},
             Case{"queen and stalemate", "k7/2Q5/8/8/8/8/8/4K3 b - -", DRAWN},
             Case{"rook and mate", "k6R/8/1K6/8/8/8/8/8 b - -", WIN},
             Case{"rook", "8/8/3k4/8/8/8/8/3RK3 b - -", WIN},
             Case{"bishop and knight", "8/8/3k4/8/8/8/8/2B1K1N1 w - -", WIN},
             Case{"two bishops", "8/8/3k4/8/8/8/8/2B1KB2 w - -", WIN},
             Case{"bishops of one colour", "8/8/3k4/8/8/B7/8/2B1K3 w - -", DRAWN},
             Case{"two knights", "8/8/3k4/8/8/8/8/1N2K1N1 w - -", DRAWN},
             Case{"three knights", "8/8/3k4/8/8/8/8/1NN1K1N1 w - -", WIN},
             Case{"knight", "8/8/3k4/8/8/8/8/1N2K3 w - -", DRAWN},
             Case{"bishop", "8/8/3k4/8/8/8/8/2B1K3 b - -", DRAWN},
             Case{"queen and pawns", "8/8/3k4/8/8/8/PPP5/3QK3 w - -", WIN},
             Case{"pawn, won", "4k3/8/4K3/4P3/8/8/8/8 b - -", WIN},
             Case{"pawn, drawn", "8/4k3/8/4K3/4P3/8/8/8 w - -", DRAWN},
             Case{"rook's pawn", "1k6/8/1K6/P7/8/8/8/8 w - -", DRAWN},
             Case{"doubled rook's pawns", "1k6/8/1K6/P7/P7/8/8/8 w - -", DRAWN},
             Case{"pawns on both edges", "1k6/8/1K6/P7/7P/8/8/8 w - -", OPEN},
             Case{"rook's pawns and a king far away", "8/8/1K6/P7/P5k1/8/8/8 w - -", OPEN},
             Case{"wrong bishop", "k7/8/1K6/P7/8/2B5/8/8 w - -", DRAWN},
             Case{"two wrong bishops", "1k6/8/1K6/P7/8/2B5/1B6/8 w - -", DRAWN},
             Case{"right bishop", "k7/8/1K6/P7/8/3B4/8/8 w - -", OPEN},
             Case{"wrong bishop and another pawn", "k7/8/1K6/P7/2P5/2B5/8/8 w - -", OPEN},
             Case{"knight and rook's pawn", "k7/8/1K6/P7/8/2N5/8/8 w - -", OPEN},
             Case{"on the seventh", "k7/P7/8/3N4/8/8/8/4K3 w - -", DRAWN},
             Case{"on the seventh, beside the corner", "8/Pk6/8/3N4/8/2K5/8/8 w - -", DRAWN},
             Case{"the corner taken", "8/Pk6/1N6/2K5/8/8/8/8 w - -", OPEN},
             Case{"the corner taken for nothing", "8/Pk6/1N6/2K5/8/8/8/8 b - -", DRAWN},
             Case{"mate in one", "k7/P7/1K6/3N4/8/8/8/8 w - -", OPEN},
             // Without pawns.
             Case{"queen and rook", "8/8/3k4/3r4/8/8/8/3QK3 b - -", WIN},
             Case{"queen and bishop", "8/8/3k4/3b4/8/8/8/4KQ2 b - -", WIN},
             Case{"queen and knight", "8/8/3k4/3n4/8/8/8/4KQ2 b - -", WIN},
             Case{"queen and two knights", "8/8/3k4/2nn4/8/8/8/4KQ2 b - -", NEARLY_DRAWN},
             Case{"rook and bishop", "8/8/3k4/3b4/8/8/8/4KR2 w - -", NEARLY_DRAWN},
             Case{"rook and knight", "8/8/3k4/3n4/8/8/8/4KR2 w - -", NEARLY_DRAWN},
             Case{"rook and rook", "8/8/3k4/3r4/8/8/8/4KR2 w - -", DRAWN},
             Case{"rook and minor against rook", "8/8/3k4/3r4/8/8/8/4KRB1 w - -", NEARLY_DRAWN},
             Case{"two rooks against rook", "8/8/3k4/3r4/8/8/8/4KRR1 w - -", WIN},
             Case{"rook and knight against knight", "8/8/3k4/3n4/8/8/8/4KRN1 w - -", WIN},
             Case{"two knights against one", "8/8/3k4/3n4/8/8/8/4KNN1 w - -", DRAWN},
             Case{"minor against minor", "8/8/3k4/3n4/8/8/8/4KB2 w - -", DRAWN},
             Case{"bishop and knight against bishop", "8/8/3k4/3b4/8/8/8/4KBN1 w - -",
                  NEARLY_DRAWN},
             Case{"two bishops against knight", "8/8/3k4/3n4/8/8/8/2B1KB2 w - -", OPEN},
             // Rook against pawn.
             Case{"king before the pawn", "8/8/8/5k2/5p2/8/5K2/7R b - -", WIN},
             Case{"king cut off from its pawn", "7k/8/8/R7/8/5p2/8/4K3 b - -", WIN},
             Case{"pawn and king together", "6K1/8/8/8/8/3pk3/8/R7 w - -", NEARLY_DRAWN},
             Case{"pawn about to promote", "6K1/8/8/8/8/8/3pk3/R7 b - -", NEARLY_DRAWN},
             // Queen against pawn.
             Case{"rook's pawn and their king far", "8/8/5k2/8/8/8/p7/4K2Q w - -", WIN},
             Case{"rook's pawn and their king coming", "8/8/8/8/8/2k5/p7/4K2Q w - -", OPEN},
             Case{"central pawn", "6K1/8/8/8/8/8/3pk3/Q7 w - -", WIN},
             Case{"knight's pawn", "6K1/8/8/8/8/8/1pk5/7Q w - -", WIN},
             Case{"rook's pawn", "6K1/8/8/8/8/8/pk6/7Q w - -", NEARLY_DRAWN},
             Case{"rook's pawn and our king there", "8/8/8/8/2K5/8/pk6/7Q w - -", WIN},
             Case{"bishop's pawn", "6K1/8/8/8/8/8/2pk4/Q7 w - -", NEARLY_DRAWN},
             Case{"bishop's pawn and our king there", "8/8/8/8/1K6/8/2pk4/7Q w - -", WIN},
             Case{"rook's pawn two steps away", "6K1/8/8/8/8/p7/1k6/7Q w - -", WIN},
             Case{"about to promote", "6K1/8/8/8/8/8/3p1k2/Q7 b - -", OPEN},
             // Bishops and a pawn.
             Case{"king before the pawn, opposite", "4k3/4b3/8/8/4P3/3BK3/8/8 w - -", NEARLY_DRAWN},
             Case{"king before the pawn, safe", "8/4kb2/8/8/4P3/4K3/4B3/8 w - -", NEARLY_DRAWN},
             Case{"king before the pawn, unsafe", "4k3/8/8/8/4P1b1/4K3/4B3/8 w - -", OPEN},
             Case{"bishop watches the path", "8/8/6k1/4b3/8/4KP2/4B3/8 w - -", NEARLY_DRAWN},
             Case{"king far away", "8/5b2/8/3P4/3K4/3B4/8/7k w - -", OPEN},
             // Too many men.
             Case{"three pieces each", "3rknb1/8/8/8/8/8/8/2RBKN2 w - -", OPEN},
             Case{"middlegame", "r1bqk2r/pppp1ppp/2n2n2/4p3/2B1P3/5N2/PPPP1PPP/RNBQK2R w - -",
                  OPEN},
             Case{"pawn ending", "8/5pk1/6p1/8/8/6P1/5PKP/8 w - -", OPEN},
         }) {
        SCOPED_TRACE(c.name);
        LoadFen(c.fen);
        const std::optional<int32_t> score = WhiteScore();
        EXPECT_EQ(c.verdict, VerdictFor(score)) << score.value_or(-1);
        LoadFen(FlippedFen().c_str());
        const std::optional<int32_t> flipped = WhiteScore();
        EXPECT_EQ(score.value_or(-1), flipped ? -*flipped : -1);
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
             Case{"own king near", "3k4/8/3K4/8/8/8/8/7R", "3k4/8/8/8/3K4/8/8/7R"},
             Case{"corner of the bishop", "7k/8/5K2/8/8/8/1B6/6N1", "k7/8/2K5/8/8/8/1B6/6N1"},
             Case{"way to that corner", "5k2/8/5K2/8/8/8/1B6/6N1", "2k5/8/2K5/8/8/8/1B6/6N1"},
             Case{"corner of the other bishop", "k7/8/2K5/8/8/8/B7/6N1", "7k/8/5K2/8/8/8/B7/6N1"},
             Case{"pawn further on", "1k6/4P3/3K4/8/8/8/8/8", "1k6/8/3KP3/8/8/8/8/8"},
             Case{"promoted", "1k2Q3/8/3K4/8/8/8/8/8", "1k6/4P3/3K4/8/8/8/8/8"},
             Case{"promoted beside a rook", "1k2Q3/8/3K4/8/8/8/8/7R", "1k6/4P3/3K4/8/8/8/8/7R"},
             Case{"rook won by the queen", "3k4/8/3K4/8/8/8/8/Q7", "2rk4/8/3K4/8/8/8/8/Q7"},
             Case{"knight astray from the rook", "4k3/8/4K3/8/8/8/8/n6R", "3nk3/8/4K3/8/8/8/8/7R"},
             Case{"pawn won by the rook", "8/8/3k4/8/8/8/8/3KR3", "8/8/3k4/3p4/8/8/8/3KR3"},
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

// Any men anywhere, kings too many or none, pawns on the outermost ranks.
TEST_F(Endings, PreferNoColourOnAnyBoard) {
    std::mt19937 random(7);
    const auto below = [&](unsigned bound) { return random() % bound; };
    int known = 0;
    for (int i = 0; i < 60000; i++) {
        Ply = SetupPly = 0;
        CastleRights = 0;
        ClearBoard();
        const unsigned men = 1 + below(i % 50 == 0 ? 60 : 6);
        const bool kings = below(20) != 0;
        for (unsigned man = 0; man < men; man++) {
            constexpr Piece pieces[] = {KNIGHT, PAWN, ROOK, BISHOP, QUEEN, KING};
            const int sq = int(below(64));
            if (Board[sq] == EMPTY)
                PlacePiece(sq, Colour(below(2)), pieces[below(kings ? 5 : 6)]);
        }
        for (const Colour side : {WHITE, BLACK}) {
            const int sq = int(below(64));
            if (kings && Board[sq] == EMPTY)
                PlacePiece(sq, side, KING);
        }
        SideToMove = Colour(below(2));
        const std::string fen = WriteFen();
        int32_t score = 12345;
        const bool found = EvaluateEnding(score);
        known += found;
        ASSERT_TRUE(found || score == 12345) << fen;
        ASSERT_LT(std::abs(score), 30000) << fen;
        LoadFen(FlippedFen().c_str());
        int32_t flipped = 12345;
        ASSERT_EQ(found, EvaluateEnding(flipped)) << fen;
        ASSERT_EQ(score, flipped) << fen;
    }
    EXPECT_GT(known, 6000);
}

TEST_F(Endings, CapTheScoreOfWhoCannotWin) {
    struct Case {
        const char* men;
        int32_t score, capped; // from Black's view
    };
    for (const Case& c : {
             Case{"4kn2/8/8/8/8/8/P7/4K3", 150, 0},
             Case{"4kn2/8/8/8/8/8/P7/4K3", -150, -150},
             Case{"4kb2/8/8/8/8/8/P7/4K3", 150, 0},
             Case{"4knn1/8/8/8/8/8/P7/4K3", 300, 0},
             Case{"4kbn1/8/8/8/8/8/P7/4K3", 300, 300},
             Case{"4kr2/8/8/8/8/8/P7/4K3", 300, 300},
             Case{"4kn2/p7/8/8/8/8/P7/4K3", 300, 300},
             Case{"4k3/p7/8/8/8/8/8/4KN2", -200, 0},
             Case{"4k3/p7/8/8/8/8/8/4KQ2", -200, -200},
             Case{"4k3/p7/8/8/8/8/8/4KN2", 0, 0},
         }) {
        SCOPED_TRACE(testing::Message() << c.men << " " << c.score);
        LoadFen((std::string(c.men) + " w - -").c_str());
        EXPECT_EQ(c.capped, CapUnwinnable(c.score));
    }
}
