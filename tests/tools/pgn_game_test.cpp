// Games as real files hold them, read to the board.

#include <memory>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "board/position.h"
#include "support/scratch.h"
#include "tools/pgn_game.h"

namespace {

// Every game as one line: its moves as they are written, what ended it if that was an error, and
// what is known of it.
std::string Games(const std::string& text) {
    const ScratchDirectory scratch;
    WriteFileText("games.pgn", text);
    const auto reader = std::make_unique<PgnReader>();
    EXPECT_TRUE(PgnOpen(*reader, "games.pgn"));
    PgnWantedTag wanted[] = {{"White"}};
    PgnGame game;
    game.wanted = wanted;
    std::string told;
    while (PgnNextGame(*reader, game)) {
        told += std::to_string(game.number) + ":";
        PgnStep step = PgnNextMove(*reader, game);
        for (; step == PgnStep::MOVE; step = PgnNextMove(*reader, game)) {
            told += std::string(" ") + game.moveText;
            PgnPlay(game);
        }
        if (step != PgnStep::GAME_END)
            told += std::string(step == PgnStep::UNKNOWN_MOVE ? " unknown " : " ambiguous ") +
                    game.moveText;
        told += " /" + std::to_string(game.result) + " " + std::to_string(game.plyCount) + " " +
                wanted[0].value + "\n";
    }
    PgnClose(*reader);
    return told;
}

TEST(PgnGames, SurviveWhatRealFilesHold) {
    const struct {
        const char* name;
        const char* text;
        const char* games;
    } cases[] = {
        {"a game", "[White \"Me\"]\n[Result \"1-0\"]\n[PlyCount \"3\"]\n\n1. e4 e5 2. Nf3 1-0\n",
         "1: e4 e5 Nf3 /1 3 Me\n"},
        {"other numbers, marks, no space",
         "1.e4!e5?? 2 . Nf3+- $14 2... Nc6$1{x}3 Bb5#*[White A]1e4 c5 0-1",
         "1: e4 e5 Nf3 Nc6 Bb5 /0 0 \n2: e4 c5 /0 0 A\n"},
        {"a byte-order mark, an escape line and carriage returns",
         "\xef\xbb\xbf% e4 [x\r\n[White \"Me\"]\r\n\r\n1. e4\r\n% { (\r\ne5 1/2-1/2\r\n",
         "1: e4 e5 /0 0 Me\n"},
        {"comments and variations in each other",
         "{a} 1. e4 {b ( c} (1. d4 {)} d5 (1... Nf6) ; ) (\n 2. c4) e5 ; {\n 2. d4 () *",
         "1: e4 e5 d4 /0 0 \n"},
        {"tags with brackets, quotes and cuts",
         "[Annotator \"[a] \\\"b\\\" ]\"]\n[white \"Me [7] \\\"x\\\"\"]\n[result \"0-1\"\n"
         "[ResultDetail \"time\"]\n"
         "[PLYCOUNT 12]\n\ne4 *",
         "1: e4 /2 12 Me [7] \"x\"\n"},
        {"games without moves, without results, without tags",
         "[White \"A\"]\n[Result \"1/2-1/2\"]\n\n1/2-1/2\n\n[White \"B\"]\n\n1. e4\n\n"
         "[White \"C\"]\n\n1. d4 d5 *\n\nc4 1-0\nf4 1/2",
         "1: /3 0 A\n2: e4 /0 0 B\n3: d4 d5 /0 0 C\n4: c4 /0 0 \n5: f4 /0 0 \n"},
        {"null moves, but not in check", "1. e4 -- 2. Nf3 Z0 3. Bb5 c6 * 1. e4 f5 Qh5 -- *",
         "1: e4 -- Nf3 Z0 Bb5 c6 /0 0 \n2: e4 f5 Qh5 unknown -- /0 0 \n"},
        {"errors, each of one game",
         "1. e4 Ke4 e5 * 1. Nf3 d5 Nc3 d4 Nd5 Nf6 Nf4 d3 Nd5 Ng8 Nf4 "
         "Nf6 Nd4 h6 Nd5 h5 Nb5 h4 Nc3 h3 Nd5 a6 * 1. d4 *",
         "1: e4 unknown Ke4 /0 0 \n2: Nf3 d5 Nc3 d4 Nd5 Nf6 Nf4 d3 Nd5 Ng8 Nf4 Nf6 Nd4 h6 Nd5 h5 "
         "Nb5 h4 ambiguous Nc3 /0 0 \n3: d4 /0 0 \n"},
        {"set-up positions, the en-passant square behind the pawn",
         "[FEN \"4k3/8/8/8/4Pp2/8/8/4K3 b - e3 0 1\"]\n\n1... fxe3 2. Kd1 *\n"
         "[FEN \"4k3/8/8/8/8/8/8/4K2R w K - 0 9\"]\n\n9. O-O *\n[White \"B\"]\n\ne4 *",
         "1: fxe3 Kd1 /0 0 \n2: O-O /0 0 \n3: e4 /0 0 B\n"},
        {"other chess is passed over",
         "[Variant \"Crazyhouse\"]\n\n1. e4 P@e5 *\n[Variant \"Standard\"]\n\n1. e4 *",
         "1: /0 0 \n2: e4 /0 0 \n"},
        {"what nobody has closed ends with the game",
         "1. e4 {x (\n[Event \"a\"]\n\n1. d4 (1. c4 ( {\n[Event \"b\"]\n\n1. f4 {",
         "1: e4 /0 0 \n2: d4 /0 0 \n3: f4 /0 0 \n"},
        {"a word longer than any", "1. e4 Nf333333333333333333333333333333333 *",
         "1: e4 unknown Nf33333333333333333333333333333 /0 0 \n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Games(c.text), c.games);
    }
}

// A piece of text wherever the buffer may end.
TEST(PgnGames, ReadTheSameAcrossTheEdgesOfTheBuffer) {
    const std::string game =
        "[White \"Me\"]\n[Result \"1-0\"]\n\n1. e4 {a} e5 (1... c5) 2. Nf3 1-0\n";
    for (size_t before = PGN_BUFFER_SIZE - game.size() - 4; before <= PGN_BUFFER_SIZE + 4;
         before++) {
        SCOPED_TRACE(before);
        const std::string padding = "; " + std::string(before - 3, '(') + "\n";
        ASSERT_EQ(Games(padding + game), "1: e4 e5 Nf3 /1 0 Me\n");
    }
}

TEST(PgnGames, MayBeLongerThanTheEngineRemembers) {
    std::string text;
    for (int i = 0; i < MAX_GAME_PLY; i++)
        text += i % 2 ? "Ng1 Ng8 " : "Nf3 Nf6 ";
    const ScratchDirectory scratch;
    WriteFileText("games.pgn", text + "e4 e5 1-0 1. e4 *");
    const auto reader = std::make_unique<PgnReader>();
    ASSERT_TRUE(PgnOpen(*reader, "games.pgn"));
    PgnGame game;
    ASSERT_TRUE(PgnNextGame(*reader, game));
    while (PgnNextMove(*reader, game) == PgnStep::MOVE)
        PgnPlay(game);
    EXPECT_EQ(game.ply, 2 * MAX_GAME_PLY + 2);
    EXPECT_LE(Ply, MAX_GAME_PLY);
    EXPECT_TRUE(PgnNextGame(*reader, game));
    EXPECT_FALSE(PgnNextGame(*reader, game));
    PgnClose(*reader);
}

// Whatever the bytes, the reader comes to the end and the board stays one that can be used.
TEST(PgnGames, EndInGarbage) {
    const std::string pieces[] = {
        "[",    "]",  "\"", "{",  "}",       "(",     ")",         ";",
        "\n",   "%",  "$",  "1.", "e4",      "Nf3",   "O-O",       "--",
        "1-0",  "*",  "\\", " ",  "[FEN \"", "8/8/K", "[Event \"", std::string(1, '\0'),
        "\xff", "=Q", "x"};
    std::mt19937 random(1);
    for (int round = 0; round < 100; round++) {
        std::string text;
        for (int i = 0; i < 400; i++)
            text += pieces[random() % std::size(pieces)];
        ASSERT_LT(Games(text).size(), 100000U) << text;
    }
}

} // namespace
