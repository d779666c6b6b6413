// A person at a terminal, who speaks to the modern interface.

#include <string>

#include <gtest/gtest.h>

#include "support/engine_process.h"
#include "support/scratch.h"

namespace {

class Person : public testing::Test {
protected:
    void SetUp() override {
        welcome = engine.ReadThrough("White 1> ");
    }
    // What is answered up to the next prompt.
    std::string Answer(const std::string& line, const std::string& prompt) {
        engine.Send(line);
        return engine.ReadThrough(prompt);
    }
    EngineProcess engine{"Interface = modern\n", EngineProcess::AtTerminal()};
    std::string welcome;
};

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != text.npos;
}

TEST_F(Person, SeesTheBoardAndAPrompt) {
    EXPECT_TRUE(Has(welcome, " 8  r n b q k b n r\n 7  p p p p p p p p\n")) << welcome;
    EXPECT_TRUE(Has(welcome, " 1  R N B Q K B N R\n    a b c d e f g h\n")) << welcome;
    EXPECT_FALSE(Has(welcome, "Transposition")) << welcome;
    EXPECT_TRUE(Has(Answer("nonsense", "White 1> "), "help shows commands"));
    EXPECT_TRUE(Has(Answer("help", "White 1> "), "takes back its move and yours"));
    EXPECT_TRUE(Has(Answer("perft 2", "White 1> "), "  total          400 in "));
    EXPECT_TRUE(Has(Answer("strength 100", "White 1> "), "plays at level 800 of 800 to 2800"));
    EXPECT_TRUE(Has(Answer("strength full", "White 1> "), "plays as well as it can"));
}

TEST_F(Person, PlaysInBothNotationsAndIsAnsweredWhileTheEnginePonders) {
    const std::string first = Answer("e4", "White 2> ");
    EXPECT_TRUE(Has(first, "depth    score   seconds      nodes  variation\n")) << first;
    EXPECT_TRUE(Has(first, "Tarquelin plays 1... ")) << first;
    EXPECT_FALSE(Has(first, "Hint")) << first;
    EXPECT_TRUE(Has(Answer("brd", "White 2> "), " 4  . . . . P . . .\n"));
    EXPECT_TRUE(Has(Answer("moves", "White 2> "), "  Nf3   "));
    EXPECT_TRUE(Has(Answer("?", "White 2> "), "plays for the side to move"));
    for (const char* const line : {"hard", "post", ".", "isready"})
        Answer(line, "White 2> ");
    EXPECT_TRUE(Has(Answer("eval", "White 2> "), "Attack on the king"));
    EXPECT_TRUE(Has(Answer("hint", "White 2> "), "You could play "));
    EXPECT_TRUE(Has(Answer("d1d1", "White 2> "), "not possible: your own queen stands on d1"));
    EXPECT_TRUE(Has(Answer("g1f3", "White 3> "), "Tarquelin plays 2... "));
    Answer("undo", "White 2> ");
    const std::string start = Answer("undo", "White 1> ");
    EXPECT_TRUE(Has(start, " 2  P P P P P P P P\n 1  R N B Q K B N R\n")) << start;
}

TEST_F(Person, HearsWhyAMoveIsNotPossible) {
    struct Case {
        const char* move;
        const char* reason;
    };
    Answer("force", "White 1> ");
    Answer("setboard 4r1k1/P7/8/8/8/8/4B3/R3K3 w Q - 3 40", "White 40> ");
    for (const Case& c :
         {Case{"Bd3", "your king would be in check"}, Case{"e2d3", "your king would be in check"},
          Case{"e3e4", "there is no man on e3"}, Case{"e8e7", "the man on e8 is not yours"},
          Case{"a7a8", "say what the pawn becomes, as in a7a8q"},
          Case{"a1b2", "the rook on a1 does not reach b2"},
          Case{"Nf3", "no knight of yours can go there"}, Case{"Kb3", "your king cannot go there"},
          Case{"o-o", "you cannot castle there now"}}) {
        const std::string text = Answer(c.move, "White 40> ");
        EXPECT_TRUE(Has(text, std::string(" is not possible: ") + c.reason + ".\n")) << text;
    }
    EXPECT_TRUE(Has(Answer("a8=Q", "Black 40> "), " 8  Q . . . r . k .\n"));
}

TEST_F(Person, AnalysesWhateverIsOnTheBoard) {
    engine.Send("analyze");
    engine.ReadThrough("exit ends the analysis");
    Answer("Nf3", "  . . . . . N . .\n");
    Answer("e7e5", "  . . . . p . . .\n");
    Answer("eval", "Attack on the king");
    Answer("nonsense", "help shows commands");
    engine.ReadThrough("depth    score ");
    Answer("exit", "White 2> ");
}

TEST_F(Person, KeepsAGameInAFile) {
    Answer("force", "White 1> ");
    Answer("f3", "Black 1> ");
    Answer("e5", "White 2> ");
    Answer("g4", "Black 2> ");
    Answer("Qh4#", "White 3> ");
    EXPECT_TRUE(Has(Answer("save fool.pgn", "White 3> "), "The game is in fool.pgn."));
    const std::string file = FileText(engine.Directory() + "/fool.pgn");
    EXPECT_TRUE(Has(file, "[Result \"0-1\"]\n")) << file;
    EXPECT_TRUE(file.ends_with("\n\n1. f3 e5 2. g4 Qh4# 0-1\n\n")) << file;
    Answer("new", "White 1> ");
    const std::string board = Answer("load fool.pgn", "White 3> ");
    EXPECT_TRUE(Has(board, " 4  . . . . . . P q\n")) << board;
    EXPECT_TRUE(Has(Answer("load nowhere.pgn", "White 3> "), "There is no game to read."));
}

} // namespace
