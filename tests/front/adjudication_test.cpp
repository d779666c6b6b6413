#include "front/game/adjudication.h"

#include "front/dialects/console.h"
#include "front/dialects/uci.h"
#include "front/game/game.h"
#include "support/board_test.h"
#include "support/scratch.h"

namespace {

constexpr const char* Material = "1/2-1/2 {Draw by insufficient material}\n";
constexpr const char* Repetition = "1/2-1/2 {Draw by repetition}\n";
constexpr const char* FiftyMoves = "1/2-1/2 {Draw by the 50-moves rule}\n";

class Adjudication : public BoardTest {
protected:
    void SetUp() override {
        BoardTest::SetUp();
        Speaking = &ConsoleDialect;
    }
    void TearDown() override {
        SetUp();
    }
    static std::string Draws() {
        return Printed([] {
            FindDraws();
            AnnounceDraws();
        });
    }
};

TEST_F(Adjudication, CountsPiecesWithoutPawns) {
    struct Case {
        const char* placement;
        int lines;
    };
    constexpr Case cases[] = {
        {"k7/8/8/8/8/8/8/K7", 2},   {"kb6/8/8/8/8/8/8/K7", 1},  {"k7/8/8/8/8/8/8/KR6", 0},
        {"kb6/8/8/8/8/8/8/KN6", 0}, {"k7/8/8/8/8/8/P7/KN6", 0}, {"kn6/p7/8/8/8/8/8/K7", 0},
        {"k7/8/8/8/8/8/P7/K7", 1},  {"k7/p7/8/8/8/8/8/K7", 1},  {"kbb5/8/8/8/8/8/8/KR6", 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.placement);
        LoadFen((std::string(c.placement) + " w - -").c_str());
        std::string expected;
        for (int i = 0; i < c.lines; i++)
            expected += Material;
        Speaking = &ConsoleDialect;
        EXPECT_EQ(Draws(), expected);
        Speaking = &UciDialect;
        EXPECT_EQ(Draws(), "");
    }
}

TEST_F(Adjudication, TheThirdOccurrenceIsARepetition) {
    Play("b1c3 b8c6 c3b1 c6b8");
    EXPECT_EQ(Draws(), "");
    Play("b1c3 b8c6 c3b1");
    EXPECT_EQ(Draws(), "");
    Play("c6b8");
    EXPECT_EQ(Draws(), Repetition);
    Play("e2e4 b8c6 b1c3 c6b8 c3b1");
    EXPECT_EQ(Draws(), "") << "since the pawn's move the position stands for the second time";
}

TEST_F(Adjudication, LostCastlingRightsMakeAnotherPosition) {
    LoadFen("r3k3/8/8/8/8/8/8/4K2R w Kq -");
    Play("h1g1 a8b8 g1h1 b8a8 h1g1 a8b8 g1h1 b8a8");
    EXPECT_EQ(Draws(), "") << "with the rights the position stood only once";
    Play("h1g1 a8b8 g1h1 b8a8");
    EXPECT_EQ(Draws(), Repetition);
}

TEST_F(Adjudication, FiftyMovesAreAHundredPlies) {
    FiftyCount = 99;
    EXPECT_EQ(Draws(), "");
    FiftyCount = 100;
    EXPECT_EQ(Draws(), FiftyMoves);
}

} // namespace
